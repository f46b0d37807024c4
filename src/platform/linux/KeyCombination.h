#pragma once

#include <compare>
#include <cstdint>

namespace blankwell {

/// A key of the Macintosh keyboard and exactly these modifiers, as a Carbon mask.
struct KeyCombination {
    // The bits of a Carbon modifier mask.
    static constexpr std::uint32_t cmdKey = 0x100;
    static constexpr std::uint32_t shiftKey = 0x200;
    static constexpr std::uint32_t optionKey = 0x800;
    static constexpr std::uint32_t controlKey = 0x1000;

    std::uint32_t keyCode = 0;
    std::uint32_t carbonModifiers = 0;

    friend auto operator<=>(const KeyCombination&, const KeyCombination&) = default;
};

} // namespace blankwell
