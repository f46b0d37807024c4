#pragma once

#include "access/SecurityScopedFolderAccessError.h"
#include "base/Bytes.h"
#include "base/FileUrl.h"
#include "platform/Log.h"

#include <expected>
#include <optional>
#include <vector>

namespace blankwell {

class Bookmarks;
class PreferenceDomains;
class TextOrder;
class UserDefaults;

/// The folders that the user granted ("roots"), kept as one bookmark each in the preference domain
/// shared with the file manager's extension.
///
/// The keys in the domain are the only list of roots there is; nothing is kept in memory, and every
/// operation opens the domain anew. Belongs to the main thread.
class SecurityScopedBookmarkStore {
public:
    /// All must outlive this object.
    SecurityScopedBookmarkStore(PreferenceDomains& domains, Bookmarks& bookmarks,
                                const TextOrder& order, Log& log);

    /// Saves a bookmark of `folder` under the standardized path of `keyUrl`. Errors:
    /// `BookmarkCreationFailed` where the system refuses to make the bookmark or to keep it;
    /// nothing is saved then.
    std::expected<void, SecurityScopedFolderAccessError> saveBookmark(const FileUrl& folder,
                                                                      const FileUrl& keyUrl);

    /// Where the folder granted as `root` is now; nothing where it cannot be reached. A stale
    /// bookmark is replaced by a fresh one under the same key, one that cannot be read is removed,
    /// and one whose folder cannot be reached at present is kept.
    [[nodiscard]] std::optional<FileUrl> resolveBookmark(const FileUrl& root);

    /// All roots in the file manager's order of their paths.
    [[nodiscard]] std::vector<FileUrl> savedFolderRoots() const;

    /// Forgets `root`; a root that is not saved is no error. Errors: the domain cannot be written;
    /// the root stays saved then.
    std::expected<void, SystemError> removeBookmark(const FileUrl& root);

    /// Where the most specific root that covers `target` is now; nothing where no covering root can
    /// be reached.
    [[nodiscard]] std::optional<FileUrl> savedAccessURL(const FileUrl& target);

private:
    struct SavedRoot;

    [[nodiscard]] UserDefaults& defaults() const;
    [[nodiscard]] std::vector<SavedRoot> sortedRoots() const;
    [[nodiscard]] std::optional<FileUrl> resolve(const FileUrl& root, const Bytes& bookmark);
    void refresh(const FileUrl& root, const FileUrl& resolved);

    PreferenceDomains& domains_;
    Bookmarks& bookmarks_;
    const TextOrder& order_;
    Logger logger_;
};

} // namespace blankwell
