#include "platform/linux/FileReplacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <utility>

namespace blankwell {
namespace {

std::expected<void, int> writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count = ::write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) {
            return std::unexpected(errno);
        }
        bytes.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
    }
    return {};
}

} // namespace

std::expected<FileReplacement, int>
FileReplacement::prepare(const std::string& path, std::string_view contents, mode_t mode) {
    const auto slash = path.find_last_of('/');
    FileDescriptor folder(
        ::open(path.substr(0, slash + 1).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder) {
        return std::unexpected(errno);
    }
    FileReplacement replacement(std::move(folder), path.substr(slash + 1));
    if (const auto written = replacement.write(contents, mode); !written) {
        return std::unexpected(written.error());
    }
    return replacement;
}

FileReplacement::FileReplacement(FileDescriptor folder, std::string name)
    : folder_(std::move(folder)), name_(std::move(name)), temporary_(name_ + ".tmp") {}

FileReplacement::~FileReplacement() {
    if (folder_) {
        ::unlinkat(folder_.get(), temporary_.c_str(), 0);
    }
}

std::expected<void, int> FileReplacement::write(std::string_view contents, mode_t mode) const {
    ::unlinkat(folder_.get(), temporary_.c_str(), 0);
    const FileDescriptor file(::openat(folder_.get(), temporary_.c_str(),
                                       O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!file) {
        return std::unexpected(errno);
    }
    auto written = writeAll(file.get(), contents);
    // The process's mask may have taken some of them away.
    if (written && (::fchmod(file.get(), mode) != 0 || ::fdatasync(file.get()) != 0)) {
        written = std::unexpected(errno);
    }
    return written;
}

std::expected<void, int> FileReplacement::commit() {
    if (::renameat(folder_.get(), temporary_.c_str(), folder_.get(), name_.c_str()) != 0) {
        return std::unexpected(errno);
    }
    // Everybody sees the new contents by now: a folder that cannot be synced is no failure, only a
    // power cut in the next seconds could bring the old contents back.
    ::fsync(folder_.get());
    folder_.reset();
    return {};
}

} // namespace blankwell
