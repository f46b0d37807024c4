#pragma once

#include <string>
#include <string_view>

namespace blankwell {

/// Whether XML 1.0 can hold `text`: UTF-8 without the control characters and noncharacters that
/// the standard forbids (section 2.2).
[[nodiscard]] bool isXmlText(std::string_view text);

/// How `text`, any bytes at all, is written as a key or string of a property list.
///
/// XML cannot hold every file path. A byte that it cannot hold, or that a reader may change (the
/// carriage return), is written as U+241B (the symbol for escape) and two hexadecimal digits, and
/// so is each byte of U+241B itself. All other text stands as it is: "/a\x01b" is "/a␛01b".
[[nodiscard]] std::string storedText(std::string_view text);

/// The text that `storedText()` made `stored` of. Text that `storedText()` never makes, which is
/// somebody else's, stands for itself.
[[nodiscard]] std::string originalText(std::string_view stored);

} // namespace blankwell
