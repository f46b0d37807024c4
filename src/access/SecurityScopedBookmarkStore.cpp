#include "access/SecurityScopedBookmarkStore.h"

#include "base/Bytes.h"
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
    auto& domain = defaults();
    const auto key = keyOf(root);
    const auto bookmark = domain.read<Bytes>(key);
    if (!bookmark) {
        return std::nullopt;
    }
    auto resolved = bookmarks_.resolve(*bookmark);
    if (resolved) {
        if (resolved->isStale) {
            refresh(domain, key, resolved->url);
        }
        return std::move(resolved->url);
    }
    const auto path = root.standardized().path();
    if (resolved.error().is(CocoaCode::fileReadCorruptFile)) {
        logger_.notice("Discarding invalid security-scoped bookmark for {}: {}", path,
                       resolved.error().description);
        // A domain that cannot be written keeps the entry, which stays as useless as it was.
        (void)domain.remove(key);
    } else {
        logger_.error(
            "Keeping security-scoped bookmark for {} despite a transient resolve failure: {}", path,
            resolved.error().description);
    }
    return std::nullopt;
}

std::vector<FileUrl> SecurityScopedBookmarkStore::savedFolderRoots() const {
    std::vector<FileUrl> roots;
    for (const auto& key : defaults().keys(keyPrefix)) {
        roots.push_back(FileUrl(key.substr(keyPrefix.size())).standardized());
    }
    std::ranges::stable_sort(roots, [&](const FileUrl& left, const FileUrl& right) {
        return order_.standardCompare(left.path(), right.path()) < 0;
    });
    return roots;
}

std::expected<void, SystemError> SecurityScopedBookmarkStore::removeBookmark(const FileUrl& root) {
    return defaults().remove(keyOf(root));
}

std::optional<FileUrl> SecurityScopedBookmarkStore::savedAccessURL(const FileUrl& target) {
    const auto standardizedTarget = target.standardized();
    std::optional<FileUrl> best;
    std::size_t bestLength = 0;
    for (const auto& root : savedFolderRoots()) {
        if (!covers(root, standardizedTarget)) {
            continue;
        }
        auto resolved = resolveBookmark(root);
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

void SecurityScopedBookmarkStore::refresh(UserDefaults& defaults, const std::string& key,
                                          const FileUrl& resolved) {
    if (auto fresh = bookmarks_.create(resolved)) {
        // The old bookmark leads to the folder as well, so it may stay where this cannot be saved.
        (void)defaults.set(key, *std::move(fresh));
    }
}

} // namespace blankwell
