#include "desktop/PrivateBus.h"

#include <systemd/sd-bus.h>

#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace blankwell {
namespace {

constexpr auto addressVariable = "DBUS_SESSION_BUS_ADDRESS";

std::string configuration(const std::string& socket) {
    return "<busconfig><type>session</type><listen>unix:path=" + socket +
           "</listen><auth>EXTERNAL</auth><policy context='default'><allow send_destination='*'/>"
           "<allow receive_sender='*'/><allow own='*'/></policy></busconfig>";
}

void require(int result, const char* what) {
    if (result < 0) {
        throw std::runtime_error(what);
    }
}

/// Whether the bus that the environment names takes connections: its socket is there before.
bool isListening() {
    sd_bus* bus = nullptr;
    const bool isOpened = sd_bus_open_user(&bus) >= 0;
    sd_bus_close_unref(bus);
    return isOpened;
}

std::string describe(sd_bus_message* call) {
    auto description =
        std::string(sd_bus_message_get_interface(call)) + '.' + sd_bus_message_get_member(call);
    const char* uri = nullptr;
    require(sd_bus_message_enter_container(call, SD_BUS_TYPE_ARRAY, "s"), "no URIs");
    while (sd_bus_message_read(call, "s", &uri) > 0) {
        description += std::string(" ") + uri;
    }
    return description;
}

} // namespace

PrivateBus::PrivateBus() : outerAddress_(std::getenv(addressVariable)) {
    const auto socket = folder_.url().appending("bus").path();
    folder_.addFile("bus.conf", configuration(socket));
    daemon_.emplace(Arguments{"dbus-daemon", "--nofork",
                              "--config-file=" + folder_.url().appending("bus.conf").path()});
    ::setenv(addressVariable, ("unix:path=" + socket).c_str(), 1);
    if (!eventually(isListening)) {
        throw std::runtime_error("no private bus");
    }
}

PrivateBus::~PrivateBus() {
    ::setenv(addressVariable, outerAddress_.c_str(), 1);
}

HungFileManager::HungFileManager(const std::string& name) {
    require(sd_bus_open_user(&bus_), "no bus");
    require(sd_bus_request_name(bus_, name.c_str(), 0), "no name");
}

HungFileManager::~HungFileManager() {
    sd_bus_close_unref(bus_);
}

std::string HungFileManager::waitingCall() const {
    sd_bus_message* message = nullptr;
    while (sd_bus_process(bus_, &message) > 0) {
        const std::unique_ptr<sd_bus_message, decltype(&sd_bus_message_unref)> owner(
            message, sd_bus_message_unref);
        if (message != nullptr && sd_bus_message_is_method_call(message, nullptr, nullptr) > 0) {
            return describe(message);
        }
    }
    return "";
}

} // namespace blankwell
