#pragma once

#include "platform/linux/BusMessage.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace blankwell {

/// A shortcut as the portal is asked for it.
struct PortalShortcut {
    /// Tells it apart from the others, now and in what the desktop remembers.
    std::string id;
    /// What the user is told that it does.
    std::string description;
    /// The keys that are wished for, as `portalTrigger` has them.
    std::string trigger;

    friend bool operator==(const PortalShortcut&, const PortalShortcut&) = default;
};

/// A shortcut as the portal gives it: its id, and how the user triggers it in the desktop's words.
/// Empty where there is no key for it; nothing where the desktop does not say.
using GivenShortcuts = std::map<std::string, std::optional<std::string>>;

/// What became of a request to the portal.
enum class PortalOutcome : std::uint8_t { success, cancelled, failed };

/// Appends an object path, type `o`.
void appendPath(BusMessage& message, const std::string& path);

/// Appends options, type `a{sv}`, whose values are strings.
void appendOptions(BusMessage& message, const std::map<std::string, std::string>& options);

/// Appends options for a session that is to hold `shortcuts`.
void appendSessionOptions(BusMessage& message, const std::map<std::string, std::string>& options,
                          const std::vector<PortalShortcut>& shortcuts);

/// Appends type `a(sa{sv})`.
void appendShortcuts(BusMessage& message, const std::vector<PortalShortcut>& shortcuts);

// Each of these reads the next value; nothing where it is of another type.

/// Type `s`.
[[nodiscard]] std::optional<std::string> readString(BusMessage& message);
/// Type `o`.
[[nodiscard]] std::optional<std::string> readPath(BusMessage& message);
/// Type `v` holding `u`, as a version is.
[[nodiscard]] std::optional<std::uint32_t> readVersion(BusMessage& message);
/// Type `u`, the first value of a response.
[[nodiscard]] std::optional<PortalOutcome> readOutcome(BusMessage& message);
/// The session in the results of a response, type `a{sv}`.
[[nodiscard]] std::optional<std::string> readSession(BusMessage& message);
/// The shortcuts in the results of a response, type `a{sv}`.
[[nodiscard]] std::optional<GivenShortcuts> readShortcutsInResults(BusMessage& message);
/// Type `a(sa{sv})`.
[[nodiscard]] std::optional<GivenShortcuts> readShortcuts(BusMessage& message);

} // namespace blankwell
