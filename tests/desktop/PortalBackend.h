#pragma once

#include "desktop/BusPeer.h"
#include "desktop/ScriptedPortal.h"

#include <string>

namespace blankwell {

/// The part of a desktop that keeps shortcuts for the portal and presses them, behind the portal's
/// own program.
class PortalBackend {
public:
    static constexpr auto busName = "org.freedesktop.impl.portal.desktop.scripted";

    PortalBackend();

    void process() { peer_.process(); }

    /// Presses `trigger`: whichever shortcut prefers it is triggered. Whether one does.
    bool press(const std::string& trigger);

    /// Ends the session.
    void closeSession();

    /// What the open session is asked to bind; empty where there is no session.
    BoundShortcuts bound;
    /// The program as the portal tells it.
    std::string applicationId;
    /// Whether the user declines the next shortcuts.
    bool declines = false;

private:
    void handle(sd_bus_message* call);
    void createSession(sd_bus_message* call);
    void bind(sd_bus_message* call);

    std::string session_;
    BusPeer peer_;
};

} // namespace blankwell
