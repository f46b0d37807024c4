#include "platform/linux/BusMessage.h"

#include <systemd/sd-bus.h>

namespace blankwell {
namespace {

std::optional<std::string> readString(sd_bus_message* message) {
    const char* value = nullptr;
    if (sd_bus_message_read_basic(message, SD_BUS_TYPE_STRING, static_cast<void*>(&value)) <= 0) {
        return std::nullopt;
    }
    return value;
}

bool enter(sd_bus_message* message, char type, const char* contents) {
    return sd_bus_message_enter_container(message, type, contents) > 0;
}

std::optional<std::vector<std::string>> readStringArray(sd_bus_message* message) {
    if (!enter(message, SD_BUS_TYPE_ARRAY, "s")) {
        return std::nullopt;
    }
    std::vector<std::string> values;
    while (auto value = readString(message)) {
        values.push_back(*std::move(value));
    }
    return sd_bus_message_exit_container(message) < 0 ? std::nullopt : std::optional(values);
}

} // namespace

void BusMessage::Release::operator()(sd_bus_message* message) const {
    sd_bus_message_unref(message);
}

BusMessage::BusMessage(sd_bus_message* message) : message_(message) {}

BusMessage& BusMessage::append(const std::string& value) {
    if (status_ >= 0) {
        status_ = sd_bus_message_append_basic(get(), SD_BUS_TYPE_STRING, value.c_str());
    }
    return *this;
}

BusMessage& BusMessage::append(const std::vector<std::string>& values) {
    if (status_ >= 0) {
        status_ = sd_bus_message_open_container(get(), SD_BUS_TYPE_ARRAY, "s");
    }
    for (const auto& value : values) {
        append(value);
    }
    if (status_ >= 0) {
        status_ = sd_bus_message_close_container(get());
    }
    return *this;
}

BusMessage& BusMessage::appendEmptyArray(const char* contents) {
    if (status_ >= 0) {
        status_ = sd_bus_message_open_container(get(), SD_BUS_TYPE_ARRAY, contents);
    }
    if (status_ >= 0) {
        status_ = sd_bus_message_close_container(get());
    }
    return *this;
}

std::optional<bool> BusMessage::readBool() {
    int value = 0;
    if (sd_bus_message_read_basic(get(), SD_BUS_TYPE_BOOLEAN, &value) <= 0) {
        return std::nullopt;
    }
    return value != 0;
}

std::optional<std::uint32_t> BusMessage::readUnsigned() {
    std::uint32_t value = 0;
    if (sd_bus_message_read_basic(get(), SD_BUS_TYPE_UINT32, &value) <= 0) {
        return std::nullopt;
    }
    return value;
}

std::optional<std::vector<std::string>> BusMessage::readStrings() {
    return readStringArray(get());
}

std::optional<BusMessage::StringLists> BusMessage::readVariantOfStringLists() {
    if (!enter(get(), SD_BUS_TYPE_VARIANT, "a{sas}") || !enter(get(), SD_BUS_TYPE_ARRAY, "{sas}")) {
        return std::nullopt;
    }
    StringLists lists;
    while (enter(get(), SD_BUS_TYPE_DICT_ENTRY, "sas")) {
        auto key = readString(get());
        auto values = readStringArray(get());
        if (!key || !values || sd_bus_message_exit_container(get()) < 0) {
            return std::nullopt;
        }
        lists.emplace(*std::move(key), *std::move(values));
    }
    return lists;
}

} // namespace blankwell
