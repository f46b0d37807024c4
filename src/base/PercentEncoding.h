#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace blankwell {

/// `text` with each `%` and its two hexadecimal digits replaced by the byte they name (RFC 3986,
/// 2.1); the bytes need not be text. Nothing where a `%` is not followed by two such digits.
[[nodiscard]] std::optional<std::string> percentDecoded(std::string_view text);

/// `bytes` with all but the ASCII letters and digits and the characters of `kept` written as `%`
/// and two capital hexadecimal digits.
[[nodiscard]] std::string percentEncoded(std::string_view bytes, std::string_view kept);

} // namespace blankwell
