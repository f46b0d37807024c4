#pragma once

#include <string>
#include <string_view>

namespace blankwell {

/// What a page of HTML says, as plain text: without tags, scripts and style sheets, one line for
/// each paragraph, heading or row, "• " in front of list items, and the usual character references
/// resolved. Any input gives some text; nothing is loaded.
[[nodiscard]] std::string plainTextOfHtml(std::string_view html);

} // namespace blankwell
