#include "platform/linux/XdgWellKnownFolders.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>
#include <utility>

namespace blankwell {
namespace {

void skipBlanks(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
}

bool skip(std::string_view& text, std::string_view prefix) {
    if (!text.starts_with(prefix)) {
        return false;
    }
    text.remove_prefix(prefix.size());
    return true;
}

/// What stands between the quote that was just read and the next one, without the backslashes that
/// quote single characters; nothing where the closing quote is missing.
std::optional<std::string> quotedText(std::string_view text) {
    std::string result;
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] == '"') {
            return result;
        }
        if (text[index] == '\\' && index + 1 < text.size()) {
            ++index;
        }
        result += text[index];
    }
    return std::nullopt;
}

/// The folder that `line` assigns to XDG_DESKTOP_DIR, if it does that and the folder is absolute.
std::optional<FileUrl> assignedDesktop(std::string_view line, const FileUrl& home) {
    skipBlanks(line);
    if (!skip(line, "XDG_DESKTOP_DIR")) {
        return std::nullopt;
    }
    skipBlanks(line);
    if (!skip(line, "=")) {
        return std::nullopt;
    }
    skipBlanks(line);
    if (!skip(line, "\"")) {
        return std::nullopt;
    }
    const bool startsAtHome = skip(line, "$HOME");
    auto path = quotedText(line);
    if (path && startsAtHome && (path->empty() || path->starts_with('/'))) {
        return home.appending(*path);
    }
    if (!path || startsAtHome || !path->starts_with('/')) {
        return std::nullopt;
    }
    return FileUrl(*std::move(path));
}

} // namespace

XdgWellKnownFolders::XdgWellKnownFolders(std::optional<std::string> userName,
                                         std::vector<FileUrl> mediaFolders)
    : userName_(std::move(userName)), mediaFolders_(std::move(mediaFolders)) {}

FileUrl XdgWellKnownFolders::desktop(const FileUrl& home) const {
    auto desktop = home.appending("Desktop");
    std::ifstream settings(home.appending(".config/user-dirs.dirs").path());
    for (std::string line; std::getline(settings, line);) {
        desktop = assignedDesktop(line, home).value_or(desktop);
    }
    return desktop.standardized();
}

std::vector<FileUrl> XdgWellKnownFolders::volumes() const {
    std::vector<FileUrl> result;
    for (const auto& folder : mediaFolders_) {
        const auto own = folder.appending(userName_.value_or(""));
        std::error_code error;
        if (userName_ && std::filesystem::is_directory(own.path(), error)) {
            result.push_back(own);
        }
    }
    result.emplace_back("/Volumes");
    return result;
}

} // namespace blankwell
