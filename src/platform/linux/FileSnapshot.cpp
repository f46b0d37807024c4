#include "platform/linux/FileSnapshot.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>

namespace blankwell {
namespace {

/// The kernel stamps files with the time of its last tick; a tick lasts at most 10 ms.
constexpr std::chrono::milliseconds settlingTime{20};

std::chrono::nanoseconds sinceEpoch(const timespec& time) {
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

/// Whether a further change would show in the file's time stamp.
bool isSettled(const struct stat& status) {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME_COARSE, &now);
    return sinceEpoch(now) - sinceEpoch(status.st_ctim) > settlingTime;
}

} // namespace

std::expected<FileSnapshot, int> FileSnapshot::open(const std::string& path) {
    // A pipe in the file's place must not make the caller wait for a writer.
    FileDescriptor descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status{};
    if (!descriptor || ::fstat(descriptor.get(), &status) != 0) {
        return std::unexpected(errno);
    }
    if (!S_ISREG(status.st_mode)) {
        return std::unexpected(EINVAL);
    }
    return FileSnapshot(std::move(descriptor), status);
}

FileSnapshot::FileSnapshot(FileDescriptor descriptor, const struct stat& status)
    : descriptor_(std::move(descriptor)), stamp_(stampOf(status)), isSettled_(isSettled(status)) {}

std::expected<std::string, int> FileSnapshot::contents(std::size_t most) const {
    // One byte more than the size tells the end without another call.
    std::string bytes(std::min(most, static_cast<std::size_t>(stamp_.size) + 1), '\0');
    std::size_t length = 0;
    while (length < bytes.size()) {
        const auto count = ::pread(descriptor_.get(), bytes.data() + length, bytes.size() - length,
                                   static_cast<off_t>(length));
        if (count < 0 && errno != EINTR) {
            return std::unexpected(errno);
        }
        if (count == 0) {
            break;
        }
        length += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    }
    bytes.resize(length);
    return bytes;
}

bool FileSnapshot::isCurrent(const std::string& path) const {
    struct stat status{};
    return isSettled_ && ::stat(path.c_str(), &status) == 0 && stampOf(status) == stamp_;
}

FileSnapshot::Stamp FileSnapshot::stampOf(const struct stat& status) {
    return {
        .device = status.st_dev,
        .inode = status.st_ino,
        .size = status.st_size,
        .modified = {status.st_mtim.tv_sec, status.st_mtim.tv_nsec},
        .changed = {status.st_ctim.tv_sec, status.st_ctim.tv_nsec},
    };
}

} // namespace blankwell
