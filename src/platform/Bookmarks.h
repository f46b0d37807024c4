#pragma once

#include "base/Bytes.h"
#include "base/FileUrl.h"
#include "platform/SystemError.h"

#include <expected>
#include <span>

namespace blankwell {

/// The folder that a bookmark leads to.
struct ResolvedBookmark {
    FileUrl url;
    /// The folder is not where the bookmark says: a fresh bookmark should replace this one.
    bool isStale = false;

    friend bool operator==(const ResolvedBookmark&, const ResolvedBookmark&) = default;
};

/// Security-scoped bookmarks: bytes that lead back to a folder which the user granted, across
/// restarts, renames and moves.
///
/// A bookmark names a folder and not a path: another folder at the same place is not it.
class Bookmarks {
public:
    virtual ~Bookmarks() = default;

    /// A bookmark of the existing folder `folder`. Errors: whatever keeps the folder from being
    /// identified.
    [[nodiscard]] virtual std::expected<Bytes, SystemError> create(const FileUrl& folder) = 0;

    /// Finds the folder again. Errors: `fileReadCorruptFile` where the bytes are not a bookmark;
    /// any other code where the folder cannot be reached now, but perhaps later.
    [[nodiscard]] virtual std::expected<ResolvedBookmark, SystemError>
    resolve(std::span<const std::byte> bookmark) = 0;
};

} // namespace blankwell
