#pragma once

#include <string>
#include <string_view>

namespace blankwell {

/// `text`, which consists of headings `[group]` with lines `key=value` under them, with `key` set
/// to `value` under `group`. A line for it is changed, else added at the end of its group; a group
/// that is missing is added at the end. All other bytes stay as they are.
[[nodiscard]] std::string withListedEntry(std::string_view text, std::string_view group,
                                          std::string_view key, std::string_view value);

/// `text` without the line `key=value` under `group`, and without the heading if nothing but blank
/// lines is left under it. Nothing changes where the value is another.
[[nodiscard]] std::string withoutListedEntry(std::string_view text, std::string_view group,
                                             std::string_view key, std::string_view value);

} // namespace blankwell
