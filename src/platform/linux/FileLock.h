#pragma once

#include "platform/linux/FileDescriptor.h"

#include <expected>
#include <string>

namespace blankwell {

/// The right to change something, held by one process at a time as long as this value lives. The
/// kernel takes it back from a process that dies.
class FileLock {
public:
    /// Waits for the lock that the file `path` stands for. Makes the file (0600) if it is missing;
    /// it is never removed, or two processes could hold locks on two files of that name. The error
    /// is an `errno` value.
    [[nodiscard]] static std::expected<FileLock, int> acquire(const std::string& path);

private:
    explicit FileLock(FileDescriptor descriptor) : descriptor_(std::move(descriptor)) {}

    FileDescriptor descriptor_;
};

} // namespace blankwell
