#pragma once

#include "platform/Bookmarks.h"

#include <map>
#include <optional>
#include <set>
#include <string>

namespace blankwell {

/// Bookmarks whose bytes are "bookmark " and the path.
class FakeBookmarks : public Bookmarks {
public:
    std::expected<Bytes, SystemError> create(const FileUrl& folder) override {
        if (failCreateWith) {
            return std::unexpected(*failCreateWith);
        }
        if (failFor.contains(folder.path())) {
            return std::unexpected(
                cocoaError(CocoaCode::fileReadNoPermission, "no bookmark of " + folder.path()));
        }
        ++created;
        return blob(folder.path());
    }

    std::expected<ResolvedBookmark, SystemError>
    resolve(std::span<const std::byte> bookmark) override {
        const auto text = textOf(bookmark);
        if (!text.starts_with("bookmark ")) {
            return std::unexpected(cocoaError(CocoaCode::fileReadCorruptFile, "not a bookmark"));
        }
        const std::string path(text.substr(9));
        const auto scripted = outcomes.find(path);
        if (scripted != outcomes.end()) {
            return scripted->second;
        }
        return ResolvedBookmark{.url = FileUrl(path)};
    }

    static Bytes blob(std::string_view path) {
        const auto text = "bookmark " + std::string(path);
        const auto bytes = bytesOf(text);
        return {bytes.begin(), bytes.end()};
    }

    /// What resolving the bookmark of a path answers instead of that path.
    std::map<std::string, std::expected<ResolvedBookmark, SystemError>> outcomes;
    std::optional<SystemError> failCreateWith;
    /// The paths of folders that get no bookmark.
    std::set<std::string> failFor;
    int created = 0;
};

} // namespace blankwell
