#pragma once

#include "platform/linux/KeyCombination.h"

#include <optional>
#include <string>

namespace blankwell {

/// `combination` as a trigger of the XDG Shortcuts Specification, such as "CTRL+ALT+n". Keys bear
/// the names that they have on an ANSI keyboard: to a desktop with another layout that can be
/// another key. Nothing for what is no key, a key without a name there, or no modifier.
[[nodiscard]] std::optional<std::string> portalTrigger(const KeyCombination& combination);

} // namespace blankwell
