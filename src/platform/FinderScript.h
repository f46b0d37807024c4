#pragma once

#include <string>
#include <string_view>

namespace blankwell {

/// The AppleScript that has Finder move the item at `path` to the Trash.
[[nodiscard]] std::string finderDeletionScript(std::string_view path);

} // namespace blankwell
