#include "platform/linux/PropertyListText.h"

#include "base/Text.h"

#include <fmt/core.h>

#include <algorithm>
#include <charconv>

namespace blankwell {
namespace {

constexpr std::string_view escape = "\xE2\x90\x9B";
constexpr std::size_t escapedByteLength = escape.size() + 2;

bool isForbiddenControl(char character) {
    return static_cast<unsigned char>(character) < 0x20 && character != '\t' && character != '\n' &&
           character != '\r';
}

/// Whether `text` can be stored as it is.
bool isPlain(std::string_view text) {
    return isXmlText(text) && !text.contains('\r') && !text.contains(escape);
}

/// The length of the character that `text` begins with if it can be stored as it is, else 0.
std::size_t plainCharacterLength(std::string_view text) {
    constexpr std::size_t longest = 4;
    for (std::size_t length = 1; length <= std::min(longest, text.size()); ++length) {
        const auto character = text.substr(0, length);
        if (isUtf8(character)) {
            return isPlain(character) ? length : 0;
        }
    }
    return 0;
}

std::string escaped(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const auto length = plainCharacterLength(text);
        if (length == 0) {
            result += fmt::format("{}{:02X}", escape, static_cast<unsigned char>(text.front()));
        } else {
            result += text.substr(0, length);
        }
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return result;
}

std::string unescaped(std::string_view stored) {
    std::string result;
    for (auto at = stored.find(escape); at != std::string_view::npos; at = stored.find(escape)) {
        result += stored.substr(0, at);
        const auto digits = stored.substr(at + escape.size(), 2);
        unsigned char byte = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
        result += static_cast<char>(byte);
        stored.remove_prefix(std::min(at + escapedByteLength, stored.size()));
    }
    return result.append(stored);
}

} // namespace

bool isXmlText(std::string_view text) {
    return isUtf8(text) && std::ranges::none_of(text, isForbiddenControl) &&
           !text.contains("\xEF\xBF\xBE") && !text.contains("\xEF\xBF\xBF");
}

std::string storedText(std::string_view text) {
    return isPlain(text) ? std::string(text) : escaped(text);
}

std::string originalText(std::string_view stored) {
    if (!stored.contains(escape)) {
        return std::string(stored);
    }
    auto original = unescaped(stored);
    return storedText(original) == stored ? original : std::string(stored);
}

} // namespace blankwell
