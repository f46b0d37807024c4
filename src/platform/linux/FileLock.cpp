#include "platform/linux/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <utility>

namespace blankwell {

std::expected<FileLock, int> FileLock::acquire(const std::string& path) {
    FileDescriptor descriptor(
        ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR));
    if (!descriptor) {
        return std::unexpected(errno);
    }
    while (::flock(descriptor.get(), LOCK_EX) != 0) {
        if (errno != EINTR) {
            return std::unexpected(errno);
        }
    }
    return FileLock(std::move(descriptor));
}

} // namespace blankwell
