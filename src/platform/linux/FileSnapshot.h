#pragma once

#include "platform/linux/FileDescriptor.h"

#include <sys/stat.h>

#include <cstddef>
#include <ctime>
#include <expected>
#include <string>
#include <utility>

namespace blankwell {

/// A regular file as it was when it was opened, and the means to tell cheaply whether the same file
/// still stands, unchanged, at its path.
///
/// The file stays open, so its inode number is not given to another file meanwhile. Errors are
/// `errno` values.
class FileSnapshot {
public:
    /// Opens the file at `path`, following links. What is not a regular file is EINVAL.
    [[nodiscard]] static std::expected<FileSnapshot, int> open(const std::string& path);

    /// The bytes of the file, of which no more than `most` are read.
    [[nodiscard]] std::expected<std::string, int> contents(std::size_t most) const;

    /// Whether what was read is what `path` holds now. Costs one system call. Says no for the first
    /// moments after a change of the file: another change then could bear the same time stamp.
    [[nodiscard]] bool isCurrent(const std::string& path) const;

private:
    struct Stamp {
        dev_t device;
        ino_t inode;
        off_t size;
        std::pair<std::time_t, long> modified;
        std::pair<std::time_t, long> changed;

        friend bool operator==(const Stamp&, const Stamp&) = default;
    };

    FileSnapshot(FileDescriptor descriptor, const struct stat& status);

    static Stamp stampOf(const struct stat& status);

    FileDescriptor descriptor_;
    Stamp stamp_;
    bool isSettled_;
};

} // namespace blankwell
