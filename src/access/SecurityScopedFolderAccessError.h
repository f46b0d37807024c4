#pragma once

#include "access/SecurityScopedBookmarkError.h"
#include "base/FileUrl.h"

#include <string>
#include <variant>

namespace blankwell {

/// Why a folder cannot be written to, or was not granted.
struct SecurityScopedFolderAccessError {
    /// The user did not grant the folder that was asked for.
    struct AccessCancelled {
        FileUrl folder;

        friend bool operator==(const AccessCancelled&, const AccessCancelled&) = default;
    };

    /// The user chose a folder that does not hold the one that was needed.
    struct WrongFolder {
        FileUrl asked;
        FileUrl chosen;

        friend bool operator==(const WrongFolder&, const WrongFolder&) = default;
    };

    /// The chosen folder could not be saved.
    struct BookmarkCreationFailed {
        SecurityScopedBookmarkError underlying;

        friend bool operator==(const BookmarkCreationFailed&,
                               const BookmarkCreationFailed&) = default;
    };

    /// A saved folder could not be found again. The store keeps such failures to itself, so none of
    /// the flows ends with this.
    struct BookmarkResolutionFailed {
        SystemError underlying;

        friend bool operator==(const BookmarkResolutionFailed&,
                               const BookmarkResolutionFailed&) = default;
    };

    /// No saved folder covers the target, and nobody may be asked.
    struct NoSavedAccess {
        FileUrl target;

        friend bool operator==(const NoSavedAccess&, const NoSavedAccess&) = default;
    };

    /// The user database has no entry for the user.
    struct HomeFolderUnavailable {
        friend bool operator==(const HomeFolderUnavailable&,
                               const HomeFolderUnavailable&) = default;
    };

    std::variant<AccessCancelled, WrongFolder, BookmarkCreationFailed, BookmarkResolutionFailed,
                 NoSavedAccess, HomeFolderUnavailable>
        reason;

    /// The text for the user.
    [[nodiscard]] std::string description() const;

    friend bool operator==(const SecurityScopedFolderAccessError&,
                           const SecurityScopedFolderAccessError&) = default;
};

} // namespace blankwell
