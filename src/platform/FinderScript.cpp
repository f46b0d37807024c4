#include "platform/FinderScript.h"

#include <fmt/core.h>

namespace blankwell {
namespace {

std::string escapedForAppleScript(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char character : text) {
        if (character == '\\' || character == '"') {
            escaped += '\\';
        }
        escaped += character;
    }
    return escaped;
}

} // namespace

std::string finderDeletionScript(std::string_view path) {
    return fmt::format("tell application \"Finder\"\n"
                       "    delete POSIX file \"{}\"\n"
                       "end tell",
                       escapedForAppleScript(path));
}

} // namespace blankwell
