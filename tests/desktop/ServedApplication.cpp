#include "desktop/ServedApplication.h"

#include <systemd/sd-bus.h>

#include <cstdint>
#include <memory>
#include <stdexcept>

namespace blankwell {
namespace {

using Message = std::unique_ptr<sd_bus_message, decltype(&sd_bus_message_unref)>;

/// What `call` asks for; empty where it is not of the interface or its arguments are wrong.
std::string described(sd_bus_message* call) {
    constexpr auto interface = "org.freedesktop.Application";
    const char* text = nullptr;
    std::string description;
    if (sd_bus_message_is_method_call(call, interface, "Activate") > 0) {
        description = "activate";
    } else if (sd_bus_message_is_method_call(call, interface, "Open") > 0) {
        description = "open";
        sd_bus_message_enter_container(call, SD_BUS_TYPE_ARRAY, "s");
        while (sd_bus_message_read(call, "s", &text) > 0) {
            description += std::string(" ") + text;
        }
        sd_bus_message_exit_container(call);
    } else if (sd_bus_message_is_method_call(call, interface, "ActivateAction") > 0 &&
               sd_bus_message_read(call, "s", &text) > 0) {
        description = std::string("action ") + text;
        sd_bus_message_skip(call, "av");
    }
    // The platform's data end every call.
    return sd_bus_message_skip(call, "a{sv}") > 0 && sd_bus_message_at_end(call, 1) > 0
               ? description
               : "";
}

} // namespace

ServedApplication::ServedApplication(const std::string& name, Manners manners) : manners_(manners) {
    if (sd_bus_open_user(&bus_) < 0 || sd_bus_request_name(bus_, name.c_str(), 0) < 0) {
        throw std::runtime_error("no application on the bus");
    }
    thread_ = std::jthread([this](const std::stop_token& stop) { serve(stop); });
}

ServedApplication::~ServedApplication() {
    thread_ = {};
    sd_bus_close_unref(bus_);
}

std::vector<std::string> ServedApplication::received() {
    thread_ = {};
    return received_;
}

void ServedApplication::serve(const std::stop_token& stop) {
    constexpr std::uint64_t turn = 10'000;
    while (!stop.stop_requested()) {
        sd_bus_message* next = nullptr;
        if (sd_bus_process(bus_, &next) == 0) {
            sd_bus_wait(bus_, turn);
        }
        const Message call(next, sd_bus_message_unref);
        if (!call || sd_bus_message_is_method_call(next, nullptr, nullptr) <= 0) {
            continue;
        }
        if (manners_ == Manners::ending) {
            sd_bus_close(bus_);
            return;
        }
        if (manners_ == Manners::ignorant) {
            sd_bus_reply_method_errorf(next, SD_BUS_ERROR_UNKNOWN_METHOD, "No such method");
            continue;
        }
        received_.push_back(described(next));
        sd_bus_reply_method_return(next, "");
    }
}

} // namespace blankwell
