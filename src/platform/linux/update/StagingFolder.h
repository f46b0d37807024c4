#pragma once

#include "base/FileUrl.h"
#include "platform/UpdateFailure.h"
#include "platform/linux/FileDescriptor.h"

#include <expected>
#include <string_view>

namespace blankwell {

/// The hidden folder beside a bundle in which updates of it are made ready: on the same file
/// system, for this user alone, and held by one process at a time.
///
/// It has archives (".part") that are not complete yet, and rooms with one bundle each: one that is
/// not installed yet, or one that was replaced.
class StagingFolder {
public:
    /// Makes the folder for the bundle at `bundle` where it is missing, and holds it.
    [[nodiscard]] static std::expected<StagingFolder, UpdateFailure> hold(const FileUrl& bundle);

    /// Removes what is left of earlier updates of the bundle at `bundle`, except archives, which
    /// can be continued, and bundles that processes run from. Does nothing while somebody holds it.
    static void sweep(const FileUrl& bundle);

    /// Removes all of it, for a bundle at `bundle` that has gone, but the bundles that processes
    /// run from. What cannot be removed stays.
    static void remove(const FileUrl& bundle);

    /// The place of the archive `name`; removes those of other names.
    [[nodiscard]] FileUrl archive(std::string_view name) const;

    /// An empty folder in it. The error is an `errno` value.
    [[nodiscard]] std::expected<FileUrl, int> makeRoom() const;

    /// Sees to it that all that was written is on the disk. The error is an `errno` value.
    [[nodiscard]] std::expected<void, int> flush() const;

private:
    StagingFolder(FileUrl url, FileDescriptor descriptor);

    void removeRooms() const;

    FileUrl url_;
    FileDescriptor descriptor_;
};

} // namespace blankwell
