#pragma once

#include "platform/linux/FileDescriptor.h"

#include <optional>

#include <sys/types.h>

namespace blankwell {

/// Holds on to one process: another that gets its id later is never meant.
class ProcessHandle {
public:
    /// The process that has the id `process` now; nothing where there is none.
    [[nodiscard]] static std::optional<ProcessHandle> open(pid_t process);

    [[nodiscard]] bool hasEnded() const;

    /// Ends it at once, whatever it does. Nothing happens where this user may not.
    void kill() const;

private:
    explicit ProcessHandle(FileDescriptor descriptor) : descriptor_(std::move(descriptor)) {}

    FileDescriptor descriptor_;
};

} // namespace blankwell
