#include "platform/linux/DisplayProtocol.h"

#include "platform/Environment.h"

namespace blankwell {

DisplayProtocol displayProtocol(const Environment& environment) {
    const auto value = [&](const char* name) { return environment.variable(name).value_or(""); };
    if (!value("WAYLAND_DISPLAY").empty() || value("XDG_SESSION_TYPE") == "wayland") {
        return DisplayProtocol::wayland;
    }
    return value("DISPLAY").empty() ? DisplayProtocol::none : DisplayProtocol::x11;
}

} // namespace blankwell
