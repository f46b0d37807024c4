#include "platform/linux/BookmarkBlob.h"
#include "support/BookmarkSeal.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

namespace {

/// Whatever decodes must be the only form of what it decodes to.
void decode(std::span<const std::byte> bytes) {
    const auto blob = blankwell::decodeBookmark(bytes);
    if (blob && !std::ranges::equal(blankwell::encodeBookmark(*blob), bytes)) {
        std::abort();
    }
}

} // namespace

/// Decodes the bytes as they are, and once more with length and checksum put right, since no
/// mutation would get past those.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes = std::as_bytes(std::span(data, size));
    decode(bytes);
    decode(blankwell::sealed(blankwell::Bytes(bytes.begin(), bytes.end())));
    return 0;
}
