#pragma once

#include "base/Bytes.h"

#include <zlib.h>

#include <cstdint>
#include <utility>

namespace blankwell {

/// `bytes` with the length and the checksum of a bookmark put right, so that a test reaches what
/// they guard. Bytes too short to hold both stay as they are.
inline Bytes sealed(Bytes bytes) {
    constexpr std::size_t lengthPosition = 12;
    if (bytes.size() < 20) {
        return bytes;
    }
    const auto put = [&](std::size_t position, std::uint32_t value) {
        for (std::size_t i = 0; i < sizeof value; ++i, value >>= 8) {
            bytes[position + i] = static_cast<std::byte>(value & 0xFF);
        }
    };
    const auto checksumPosition = bytes.size() - 4;
    put(lengthPosition, static_cast<std::uint32_t>(bytes.size()));
    put(checksumPosition,
        static_cast<std::uint32_t>(::crc32(0, reinterpret_cast<const Bytef*>(bytes.data()),
                                           static_cast<uInt>(checksumPosition))));
    return bytes;
}

} // namespace blankwell
