#pragma once

#include "updates/Appcast.h"

#include <optional>
#include <string>

namespace blankwell {

/// What decides which updates are of use here.
struct UpdateTarget {
    /// The version that runs.
    std::string version;
    /// The system's own version; empty where it is not known, and then it excludes nothing.
    std::string systemVersion;
};

/// The newest of the updates that are newer than the running version, for this system and its
/// version, published to everybody, and complete: an address over HTTPS, a length and a signature.
/// Of equally new ones the first. Nothing where there is none.
[[nodiscard]] std::optional<AppcastItem> chooseUpdate(const Appcast& feed,
                                                      const UpdateTarget& target);

/// Whether `item` is critical to who runs `version`.
[[nodiscard]] bool isCritical(const AppcastItem& item, std::string_view version);

} // namespace blankwell
