#include "platform/linux/PortalMessages.h"

#include <systemd/sd-bus.h>

#include <functional>
#include <string_view>

namespace blankwell {
namespace {

/// Reads the value of an entry, a variant, which is next; false where it is of the wrong type.
using ReadValue = std::function<bool(sd_bus_message*)>;

bool enter(sd_bus_message* message, char type, const char* contents) {
    return sd_bus_message_enter_container(message, type, contents) > 0;
}

bool leave(sd_bus_message* message) {
    return sd_bus_message_exit_container(message) >= 0;
}

std::optional<std::string> readText(sd_bus_message* message, char type) {
    const char* value = nullptr;
    if (sd_bus_message_read_basic(message, type, static_cast<void*>(&value)) <= 0) {
        return std::nullopt;
    }
    return value;
}

bool readEntry(sd_bus_message* message, std::string_view wanted, const ReadValue& read) {
    const auto key = readText(message, SD_BUS_TYPE_STRING);
    if (!key) {
        return false;
    }
    return *key == wanted ? read(message) : sd_bus_message_skip(message, "v") >= 0;
}

/// Reads a dictionary `a{sv}` and in it the value of the key `wanted`, if it is there. False where
/// it is no such dictionary, or the value is wrong.
bool readDictionary(sd_bus_message* message, std::string_view wanted, const ReadValue& read) {
    if (!enter(message, SD_BUS_TYPE_ARRAY, "{sv}")) {
        return false;
    }
    while (enter(message, SD_BUS_TYPE_DICT_ENTRY, "sv")) {
        if (!readEntry(message, wanted, read) || !leave(message)) {
            return false;
        }
    }
    return leave(message);
}

std::optional<std::string> readTextVariant(sd_bus_message* message) {
    for (const char type : {SD_BUS_TYPE_STRING, SD_BUS_TYPE_OBJECT_PATH}) {
        const std::string contents(1, type);
        if (enter(message, SD_BUS_TYPE_VARIANT, contents.c_str())) {
            auto text = readText(message, type);
            return leave(message) ? text : std::nullopt;
        }
    }
    return std::nullopt;
}

std::optional<GivenShortcuts> readGiven(sd_bus_message* message) {
    if (!enter(message, SD_BUS_TYPE_ARRAY, "(sa{sv})")) {
        return std::nullopt;
    }
    GivenShortcuts shortcuts;
    while (enter(message, SD_BUS_TYPE_STRUCT, "sa{sv}")) {
        const auto id = readText(message, SD_BUS_TYPE_STRING);
        std::optional<std::string> trigger;
        const bool isRead = readDictionary(message, "trigger_description", [&](auto* value) {
            trigger = readTextVariant(value);
            return trigger.has_value();
        });
        if (!id || !isRead || !leave(message)) {
            return std::nullopt;
        }
        shortcuts.emplace(*id, std::move(trigger));
    }
    return leave(message) ? std::optional(std::move(shortcuts)) : std::nullopt;
}

void appendEntry(BusMessage& message, const std::string& key, const std::string& value) {
    sd_bus_message_open_container(message.get(), SD_BUS_TYPE_DICT_ENTRY, "sv");
    message.append(key);
    sd_bus_message_open_container(message.get(), SD_BUS_TYPE_VARIANT, "s");
    message.append(value);
    sd_bus_message_close_container(message.get());
    sd_bus_message_close_container(message.get());
}

} // namespace

void appendPath(BusMessage& message, const std::string& path) {
    sd_bus_message_append_basic(message.get(), SD_BUS_TYPE_OBJECT_PATH, path.c_str());
}

void appendOptions(BusMessage& message, const std::map<std::string, std::string>& options) {
    sd_bus_message_open_container(message.get(), SD_BUS_TYPE_ARRAY, "{sv}");
    for (const auto& [key, value] : options) {
        appendEntry(message, key, value);
    }
    sd_bus_message_close_container(message.get());
}

void appendSessionOptions(BusMessage& message, const std::map<std::string, std::string>& options,
                          const std::vector<PortalShortcut>& shortcuts) {
    sd_bus_message_open_container(message.get(), SD_BUS_TYPE_ARRAY, "{sv}");
    for (const auto& [key, value] : options) {
        appendEntry(message, key, value);
    }
    sd_bus_message_open_container(message.get(), SD_BUS_TYPE_DICT_ENTRY, "sv");
    message.append("shortcuts");
    sd_bus_message_open_container(message.get(), SD_BUS_TYPE_VARIANT, "a(sa{sv})");
    appendShortcuts(message, shortcuts);
    sd_bus_message_close_container(message.get());
    sd_bus_message_close_container(message.get());
    sd_bus_message_close_container(message.get());
}

void appendShortcuts(BusMessage& message, const std::vector<PortalShortcut>& shortcuts) {
    sd_bus_message_open_container(message.get(), SD_BUS_TYPE_ARRAY, "(sa{sv})");
    for (const auto& shortcut : shortcuts) {
        sd_bus_message_open_container(message.get(), SD_BUS_TYPE_STRUCT, "sa{sv}");
        message.append(shortcut.id);
        appendOptions(message, {{"description", shortcut.description},
                                {"preferred_trigger", shortcut.trigger}});
        sd_bus_message_close_container(message.get());
    }
    sd_bus_message_close_container(message.get());
}

std::optional<std::string> readString(BusMessage& message) {
    return readText(message.get(), SD_BUS_TYPE_STRING);
}

std::optional<std::string> readPath(BusMessage& message) {
    return readText(message.get(), SD_BUS_TYPE_OBJECT_PATH);
}

std::optional<std::uint32_t> readVersion(BusMessage& message) {
    std::uint32_t version = 0;
    if (!enter(message.get(), SD_BUS_TYPE_VARIANT, "u") ||
        sd_bus_message_read_basic(message.get(), SD_BUS_TYPE_UINT32, &version) <= 0) {
        return std::nullopt;
    }
    return version;
}

std::optional<PortalOutcome> readOutcome(BusMessage& message) {
    std::uint32_t code = 0;
    if (sd_bus_message_read_basic(message.get(), SD_BUS_TYPE_UINT32, &code) <= 0) {
        return std::nullopt;
    }
    switch (code) {
    case 0:
        return PortalOutcome::success;
    case 1:
        return PortalOutcome::cancelled;
    default:
        return PortalOutcome::failed;
    }
}

std::optional<std::string> readSession(BusMessage& message) {
    std::optional<std::string> session;
    const bool isRead = readDictionary(message.get(), "session_handle", [&](auto* value) {
        session = readTextVariant(value);
        return session.has_value();
    });
    return isRead ? session : std::nullopt;
}

std::optional<GivenShortcuts> readShortcutsInResults(BusMessage& message) {
    std::optional<GivenShortcuts> shortcuts;
    const bool isRead = readDictionary(message.get(), "shortcuts", [&](auto* value) {
        if (enter(value, SD_BUS_TYPE_VARIANT, "a(sa{sv})")) {
            shortcuts = readGiven(value);
        }
        return shortcuts.has_value() && leave(value);
    });
    return isRead ? shortcuts : std::nullopt;
}

std::optional<GivenShortcuts> readShortcuts(BusMessage& message) {
    return readGiven(message.get());
}

} // namespace blankwell
