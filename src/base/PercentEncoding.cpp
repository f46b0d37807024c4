#include "base/PercentEncoding.h"

namespace blankwell {
namespace {

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

int hexDigit(char character) {
    if (isDigit(character)) {
        return character - '0';
    }
    const auto lower = static_cast<char>(character | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

bool isLetter(char character) {
    const auto lower = static_cast<char>(character | 0x20);
    return lower >= 'a' && lower <= 'z';
}

} // namespace

std::optional<std::string> percentDecoded(std::string_view text) {
    std::string decoded;
    decoded.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            decoded += text[i];
            continue;
        }
        const int high = i + 1 < text.size() ? hexDigit(text[i + 1]) : -1;
        const int low = i + 2 < text.size() ? hexDigit(text[i + 2]) : -1;
        if (high < 0 || low < 0) {
            return std::nullopt;
        }
        decoded += static_cast<char>(high * 16 + low);
        i += 2;
    }
    return decoded;
}

std::string percentEncoded(std::string_view bytes, std::string_view kept) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string encoded;
    encoded.reserve(bytes.size());
    for (const char character : bytes) {
        if (isLetter(character) || isDigit(character) || kept.contains(character)) {
            encoded += character;
            continue;
        }
        const auto byte = static_cast<unsigned char>(character);
        encoded += {'%', digits[byte >> 4U], digits[byte & 0xFU]};
    }
    return encoded;
}

} // namespace blankwell
