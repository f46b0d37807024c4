#pragma once

#include <string_view>

namespace blankwell {

/// The application's bundle identifier, D-Bus name and log subsystem.
inline constexpr std::string_view bundleIdentifier = "app.blankwell.BlankwellPlus";

/// The group whose preference domain the application, its command line and the file manager's
/// extension share.
inline constexpr std::string_view appGroupIdentifier = "BLNKWLPLUS.app.blankwell.BlankwellPlus";

} // namespace blankwell
