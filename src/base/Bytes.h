#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace blankwell {

/// Bytes that the holder owns: contents of files, stored data, bookmarks.
using Bytes = std::vector<std::byte>;

/// The bytes of `text`, borrowed: valid as long as the text is.
[[nodiscard]] inline std::span<const std::byte> bytesOf(std::string_view text) {
    return std::as_bytes(std::span(text));
}

/// `bytes` read as text, borrowed, whatever their encoding.
[[nodiscard]] inline std::string_view textOf(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

} // namespace blankwell
