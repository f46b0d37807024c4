#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace blankwell {
namespace {

using namespace std::string_view_literals;

/// One more than ASCII's: the space separators (Zs) and the line breaks of Unicode, as UTF-8.
constexpr std::array spaces{
    " "sv,
    "\t"sv,
    "\n"sv,
    "\v"sv,
    "\f"sv,
    "\r"sv,
    "\xC2\x85"sv,
    "\xC2\xA0"sv,
    "\xE1\x9A\x80"sv,
    "\xE2\x80\x80"sv,
    "\xE2\x80\x81"sv,
    "\xE2\x80\x82"sv,
    "\xE2\x80\x83"sv,
    "\xE2\x80\x84"sv,
    "\xE2\x80\x85"sv,
    "\xE2\x80\x86"sv,
    "\xE2\x80\x87"sv,
    "\xE2\x80\x88"sv,
    "\xE2\x80\x89"sv,
    "\xE2\x80\x8A"sv,
    "\xE2\x80\xA8"sv,
    "\xE2\x80\xA9"sv,
    "\xE2\x80\xAF"sv,
    "\xE2\x81\x9F"sv,
    "\xE3\x80\x80"sv,
};

/// The length in bytes that a lead byte announces; 0 where it can lead nothing.
std::size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80) {
        return 1;
    }
    if (lead >= 0xC2 && lead < 0xE0) {
        return 2;
    }
    if (lead >= 0xE0 && lead < 0xF0) {
        return 3;
    }
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

bool isSequence(std::string_view bytes) {
    constexpr std::array<std::uint32_t, 5> smallest{0, 0, 0x80, 0x800, 0x10000};
    auto codePoint = static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[0])) &
                     (bytes.size() == 1 ? 0x7FU : 0xFFU >> (bytes.size() + 1));
    for (const char byte : bytes.substr(1)) {
        if ((static_cast<unsigned char>(byte) & 0xC0U) != 0x80U) {
            return false;
        }
        codePoint = codePoint << 6U | (static_cast<unsigned char>(byte) & 0x3FU);
    }
    const bool isSurrogate = codePoint >= 0xD800 && codePoint < 0xE000;
    return codePoint >= smallest.at(bytes.size()) && codePoint <= 0x10FFFF && !isSurrogate;
}

} // namespace

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const auto length = sequenceLength(static_cast<unsigned char>(text[0]));
        if (length == 0 || length > text.size() || !isSequence(text.substr(0, length))) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

std::string_view trimmed(std::string_view text) {
    const auto leads = [&](auto space) { return text.starts_with(space); };
    const auto ends = [&](auto space) { return text.ends_with(space); };
    while (true) {
        if (const auto* space = std::ranges::find_if(spaces, leads); space != spaces.end()) {
            text.remove_prefix(space->size());
        } else if (space = std::ranges::find_if(spaces, ends); space != spaces.end()) {
            text.remove_suffix(space->size());
        } else {
            return text;
        }
    }
}

std::string asciiLowered(std::string text) {
    std::ranges::transform(text, text.begin(), [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character + 32) : character;
    });
    return text;
}

} // namespace blankwell
