#include "desktop/BusPeer.h"

#include <systemd/sd-bus.h>

#include <memory>
#include <stdexcept>
#include <utility>

namespace blankwell {

void require(int result, const char* what) {
    if (result < 0) {
        throw std::runtime_error(what);
    }
}

BusPeer::BusPeer(const std::string& name, std::function<void(sd_bus_message*)> handler)
    : handler_(std::move(handler)) {
    require(sd_bus_open_user(&bus_), "no bus");
    require(sd_bus_request_name(bus_, name.c_str(), 0), "no name");
}

BusPeer::~BusPeer() {
    sd_bus_close_unref(bus_);
}

void BusPeer::process() {
    sd_bus_message* message = nullptr;
    while (sd_bus_process(bus_, &message) > 0) {
        const std::unique_ptr<sd_bus_message, decltype(&sd_bus_message_unref)> owner(
            message, sd_bus_message_unref);
        if (message != nullptr && sd_bus_message_is_method_call(message, nullptr, nullptr) > 0) {
            handler_(message);
        }
    }
}

} // namespace blankwell
