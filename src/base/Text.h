#pragma once

#include <string>
#include <string_view>

namespace blankwell {

/// Whether `text` is well-formed UTF-8: no overlong forms, surrogates, or code points past
/// U+10FFFF.
[[nodiscard]] bool isUtf8(std::string_view text);

/// `text` without the white space and line feeds at both of its ends (borrowed). White space is
/// that of ASCII and the Unicode space separators and line breaks.
[[nodiscard]] std::string_view trimmed(std::string_view text);

/// `text` with the letters A to Z small; other bytes as they are.
[[nodiscard]] std::string asciiLowered(std::string text);

} // namespace blankwell
