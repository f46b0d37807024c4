#pragma once

#include <string>
#include <string_view>

namespace blankwell {

/// `text` as a terminal shows it without obeying it: each control character (those of ASCII, and
/// U+0080 to U+009F in UTF-8) that is not in `kept` becomes an escape as in C, such as `\n` or
/// `\x1b`.
[[nodiscard]] std::string escapedControls(std::string_view text, std::string_view kept = {});

/// Writes `text` to the open `descriptor`, in one call of the system unless the other end takes
/// less. What cannot be written is dropped: there is nowhere left to report it.
void writeText(int descriptor, std::string_view text);

} // namespace blankwell
