#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace blankwell {

/// Whether `signature` is the signature of `message` by the holder of `key`: base64 of 64 and of 32
/// raw bytes. Anything that is not of this form is no signature.
[[nodiscard]] bool isSignedByEd25519(std::span<const std::byte> message, std::string_view signature,
                                     std::string_view key);

} // namespace blankwell
