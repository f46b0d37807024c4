#pragma once

#include "platform/Bookmarks.h"
#include "platform/linux/BookmarkBlob.h"
#include "platform/linux/FolderSearch.h"

#include <expected>
#include <optional>
#include <span>
#include <string>

namespace blankwell {

class LinuxAccessScopes;

/// Bookmarks that name a folder by its path and by its identity in the file system.
///
/// A folder that is where the bookmark says costs three system calls. One that was renamed or moved
/// within its volume is asked of the kernel, or without the privilege for that searched for within
/// the limits of `FolderSearch`, and is stale. Another folder at its place is never resolved,
/// except on file systems whose identities are weak (`identityStrength`): there the path decides.
///
/// Codes of a failed `resolve`: `fileReadCorruptFile` for bytes that are no bookmark of this
/// version or an earlier one; `fileNoSuchFile` for a folder that was deleted, replaced, or not
/// found within the limits; `fileReadNoPermission` and `fileWriteNoPermission` for one that may not
/// be searched or written to; `fileWriteVolumeReadOnly`; `fileReadUnknown` where its volume is not
/// mounted, and for failures of the disk.
///
/// Every folder that was bookmarked or resolved can be started as a scope. Belongs to the main
/// thread.
class LinuxBookmarks : public Bookmarks {
public:
    /// `scopes` must outlive this object.
    explicit LinuxBookmarks(LinuxAccessScopes& scopes, FolderSearch::Limits limits = {});

    /// Errors: `fileNoSuchFile`, `fileReadNoPermission` (it may not be searched),
    /// `fileReadUnknown` (not a folder, or no absolute path, and failures of the disk).
    [[nodiscard]] std::expected<Bytes, SystemError> create(const FileUrl& folder) override;

    [[nodiscard]] std::expected<ResolvedBookmark, SystemError>
    resolve(std::span<const std::byte> bookmark) override;

private:
    [[nodiscard]] std::expected<std::string, SystemError> locate(const BookmarkBlob& blob) const;
    [[nodiscard]] std::optional<std::string> find(const BookmarkBlob& blob) const;

    const BookmarkBlob* decoded(std::span<const std::byte> bookmark);

    LinuxAccessScopes& scopes_;
    FolderSearch::Limits limits_;
    /// The bookmark that was decoded last, since many files in a row go into one folder.
    Bytes lastBookmark_;
    std::optional<BookmarkBlob> lastBlob_;
};

} // namespace blankwell
