#include "platform/linux/TerminalText.h"

#include <fmt/format.h>

#include <unistd.h>

#include <cerrno>
#include <iterator>

namespace blankwell {
namespace {

/// How many bytes of the control character that `text` begins with; 0 if it begins with another.
std::size_t controlLength(std::string_view text) {
    const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    if (byte(0) < 0x20 || byte(0) == 0x7F) {
        return 1;
    }
    const bool isC1 = byte(0) == 0xC2 && text.size() > 1 && byte(1) >= 0x80 && byte(1) < 0xA0;
    return isC1 ? 2 : 0;
}

void appendEscape(std::string& result, char byte) {
    switch (byte) {
    case '\n':
        result += "\\n";
        return;
    case '\r':
        result += "\\r";
        return;
    case '\t':
        result += "\\t";
        return;
    default:
        fmt::format_to(std::back_inserter(result), "\\x{:02x}", static_cast<unsigned char>(byte));
    }
}

} // namespace

std::string escapedControls(std::string_view text, std::string_view kept) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const auto length = controlLength(text);
        if (length == 0 || kept.contains(text[0])) {
            result += text[0];
            text.remove_prefix(1);
            continue;
        }
        for (const char byte : text.substr(0, length)) {
            appendEscape(result, byte);
        }
        text.remove_prefix(length);
    }
    return result;
}

void writeText(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const auto written = ::write(descriptor, text.data(), text.size());
        if (written < 0 && errno != EINTR) {
            return;
        }
        text.remove_prefix(static_cast<std::size_t>(written < 0 ? 0 : written));
    }
}

} // namespace blankwell
