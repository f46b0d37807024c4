#pragma once

#include "base/FileUrl.h"
#include "platform/Registrations.h"

#include <string>
#include <vector>

namespace blankwell {

/// The user's folders in which programs look for each other.
struct UserPlaces {
    FileUrl home;
    /// `XDG_DATA_HOME` and `XDG_CONFIG_HOME`.
    FileUrl dataHome;
    FileUrl configHome;
};

/// Files that want the application's place filled in.
struct DesktopTemplates {
    std::string desktopEntry;
    std::string service;

    friend bool operator==(const DesktopTemplates&, const DesktopTemplates&) = default;
};

/// What makes `bundle` known to the user's session: desktop entry, icon, URL scheme, D-Bus service,
/// the command line with its manual page and completions.
[[nodiscard]] std::vector<Registration> applicationRegistrations(const FileUrl& bundle,
                                                                 const UserPlaces& places,
                                                                 const DesktopTemplates& templates);

} // namespace blankwell
