#include "platform/linux/SessionAddress.h"

#include <unistd.h>

#include <algorithm>
#include <utility>

namespace blankwell {
namespace {

/// The value of the variable `name`, the first of that name; empty where there is none.
std::string_view valueOf(std::string_view name, std::string_view environment) {
    while (!environment.empty()) {
        const auto variable = environment.substr(0, environment.find('\0'));
        if (variable.starts_with(name) && variable.substr(name.size()).starts_with('=')) {
            return variable.substr(name.size() + 1);
        }
        environment.remove_prefix(std::min(variable.size() + 1, environment.size()));
    }
    return {};
}

/// Who connects may be told the bus's id, or not.
std::string_view withoutBusId(std::string_view address) {
    return address.substr(0, address.find(",guid="));
}

/// HOST:DISPLAY.SCREEN without the screen.
std::string_view withoutScreen(std::string_view display) {
    const auto colon = display.find_last_of(':');
    const auto dot = colon == std::string_view::npos ? colon : display.find('.', colon);
    return display.substr(0, dot);
}

bool agree(const std::string& one, const std::string& other) {
    return one.empty() || other.empty() || one == other;
}

} // namespace

SessionAddress SessionAddress::parse(std::string_view environment) {
    std::string bus(withoutBusId(valueOf("DBUS_SESSION_BUS_ADDRESS", environment)));
    const auto runtimeFolder = valueOf("XDG_RUNTIME_DIR", environment);
    if (bus.empty() && !runtimeFolder.empty()) {
        bus = "unix:path=" + std::string(runtimeFolder) + "/bus";
    }
    return {
        .bus = std::move(bus),
        .display = std::string(withoutScreen(valueOf("DISPLAY", environment))),
        .waylandDisplay = std::string(valueOf("WAYLAND_DISPLAY", environment)),
    };
}

SessionAddress SessionAddress::own() {
    std::string environment;
    for (char** variable = ::environ; variable != nullptr && *variable != nullptr; ++variable) {
        environment += *variable;
        environment += '\0';
    }
    return parse(environment);
}

bool SessionAddress::isSameSession(const SessionAddress& other) const {
    return !bus.empty() && bus == other.bus && agree(display, other.display) &&
           agree(waylandDisplay, other.waylandDisplay);
}

} // namespace blankwell
