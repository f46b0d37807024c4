#include "access/SecurityScopedBookmarkStore.h"

#include "platform/Bookmarks.h"
#include "platform/TextOrder.h"
#include "platform/UserDefaults.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace blankwell {
namespace {

constexpr std::string_view keyPrefix = "securityScopedFolderBookmark.";

std::string keyOf(const FileUrl& root) {
    return std::string(keyPrefix) + root.standardized().path();
}

/// The number of characters of a path, which is what "the longer path" is measured in. Bytes that
/// continue a UTF-8 sequence are no characters of their own.
std::size_t characterCount(std::string_view path) {
    return static_cast<std::size_t>(std::ranges::count_if(
        path, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

SecurityScopedFolderAccessError creationFailed(SystemError cause) {
    using Error = SecurityScopedFolderAccessError;
    return {Error::BookmarkCreationFailed{SecurityScopedBookmarkError{std::move(cause)}}};
}

} // namespace

/// A root, and its bookmark if the domain has one under the root's key.
struct SecurityScopedBookmarkStore::SavedRoot {
    FileUrl url;
    std::optional<Bytes> bookmark;
};

SecurityScopedBookmarkStore::SecurityScopedBookmarkStore(PreferenceDomains& domains,
                                                         Bookmarks& bookmarks,
                                                         const TextOrder& order, Log& log)
    : domains_(domains),
      bookmarks_(bookmarks),
      order_(order),
      logger_(log, "SecurityScopedBookmarks") {}

std::expected<void, SecurityScopedFolderAccessError>
SecurityScopedBookmarkStore::saveBookmark(const FileUrl& folder, const FileUrl& keyUrl) {
    auto bookmark = bookmarks_.create(folder);
    if (!bookmark) {
        return std::unexpected(creationFailed(std::move(bookmark.error())));
    }
    if (auto kept = defaults().set(keyOf(keyUrl), *std::move(bookmark)); !kept) {
        return std::unexpected(creationFailed(std::move(kept.error())));
    }
    return {};
}

std::optional<FileUrl> SecurityScopedBookmarkStore::resolveBookmark(const FileUrl& root) {
    const auto bookmark = defaults().read<Bytes>(keyOf(root));
    return bookmark ? resolve(root, *bookmark) : std::nullopt;
}

std::vector<FileUrl> SecurityScopedBookmarkStore::savedFolderRoots() const {
    std::vector<FileUrl> roots;
    for (auto& root : sortedRoots()) {
        roots.push_back(std::move(root.url));
    }
    return roots;
}

std::expected<void, SystemError> SecurityScopedBookmarkStore::removeBookmark(const FileUrl& root) {
    return defaults().remove(keyOf(root));
}

std::optional<FileUrl> SecurityScopedBookmarkStore::savedAccessURL(const FileUrl& target) {
    const auto standardizedTarget = target.standardized();
    std::optional<FileUrl> best;
    std::size_t bestLength = 0;
    for (const auto& root : sortedRoots()) {
        if (!root.bookmark || !covers(root.url, standardizedTarget)) {
            continue;
        }
        auto resolved = resolve(root.url, *root.bookmark);
        if (!resolved) {
            continue;
        }
        const auto length = characterCount(resolved->standardized().path());
        if (!best || length > bestLength) {
            best = std::move(resolved);
            bestLength = length;
        }
    }
    return best;
}

UserDefaults& SecurityScopedBookmarkStore::defaults() const {
    return sharedDefaults(domains_);
}

/// All roots in the file manager's order of their paths, as the domain holds them at one moment.
std::vector<SecurityScopedBookmarkStore::SavedRoot>
SecurityScopedBookmarkStore::sortedRoots() const {
    std::vector<SavedRoot> roots;
    for (auto& [key, value] : defaults().entries(keyPrefix)) {
        key.erase(0, keyPrefix.size());
        const auto length = key.size();
        SavedRoot root{.url = FileUrl(std::move(key)).standardized()};
        // A path that standardizing shortens names no bookmark: none was ever saved under it.
        auto* const bookmark = value ? std::get_if<Bytes>(&*value) : nullptr;
        if (bookmark != nullptr && root.url.path().size() == length) {
            root.bookmark = std::move(*bookmark);
        }
        roots.push_back(std::move(root));
    }
    if (roots.size() < 2) {
        return roots; // one needs no order, and no rules of the order loaded
    }
    std::ranges::stable_sort(roots, [&](const SavedRoot& left, const SavedRoot& right) {
        return order_.standardCompare(left.url.path(), right.url.path()) < 0;
    });
    return roots;
}

std::optional<FileUrl> SecurityScopedBookmarkStore::resolve(const FileUrl& root,
                                                            const Bytes& bookmark) {
    auto resolved = bookmarks_.resolve(bookmark);
    if (resolved) {
        if (resolved->isStale) {
            refresh(root, resolved->url);
        }
        return std::move(resolved->url);
    }
    const auto path = root.standardized().path();
    if (resolved.error().is(CocoaCode::fileReadCorruptFile)) {
        logger_.notice("Discarding invalid security-scoped bookmark for {}: {}", path,
                       resolved.error().description);
        // A domain that cannot be written keeps the entry, which stays as useless as it was.
        (void)defaults().remove(keyOf(root));
    } else {
        logger_.error(
            "Keeping security-scoped bookmark for {} despite a transient resolve failure: {}", path,
            resolved.error().description);
    }
    return std::nullopt;
}

void SecurityScopedBookmarkStore::refresh(const FileUrl& root, const FileUrl& resolved) {
    if (auto fresh = bookmarks_.create(resolved)) {
        // The old bookmark leads to the folder as well, so it may stay where this cannot be saved.
        (void)defaults().set(keyOf(root), *std::move(fresh));
    }
}

} // namespace blankwell
