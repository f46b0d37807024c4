#include "base/Quoting.h"

#include <fmt/core.h>

namespace blankwell {
namespace {

std::string escapeOf(char character) {
    switch (character) {
    case '\\':
        return "\\\\";
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    default:
        return {character};
    }
}

} // namespace

std::string desktopEntryValue(std::string_view text) {
    std::string value;
    for (const char character : text) {
        value += escapeOf(character);
    }
    if (value.starts_with(' ')) { // blanks in front of a value do not count
        value.replace(0, 1, "\\s");
    }
    return value;
}

std::string desktopEntryWord(std::string_view word) {
    std::string quoted = "\"";
    for (const char character : word) {
        if (std::string_view("\"`$\\").contains(character)) {
            quoted += '\\';
        }
        quoted += character;
    }
    return quoted + '"';
}

std::string withoutFieldCodes(std::string_view text) {
    std::string result;
    for (const char character : text) {
        result += character == '%' ? std::string("%%") : std::string(1, character);
    }
    return result;
}

std::string shellWord(std::string_view word) {
    std::string quoted = "'";
    for (const char character : word) {
        quoted += character == '\'' ? std::string(R"('\'')") : std::string(1, character);
    }
    return quoted + '\'';
}

std::string pythonBytes(std::string_view bytes) {
    std::string literal = "b\"";
    for (const char character : bytes) {
        const bool isPlain =
            character >= ' ' && character <= '~' && character != '"' && character != '\\';
        literal += isPlain ? std::string(1, character)
                           : fmt::format("\\x{:02x}", static_cast<unsigned char>(character));
    }
    return literal + '"';
}

} // namespace blankwell
