#include "platform/linux/LinuxFileSystem.h"

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/SystemErrors.h"

#include <dirent.h>
#include <fcntl.h>
#include <fmt/core.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <memory>
#include <utility>

namespace blankwell {
namespace {

/// `EINVAL` for a path that no system call can take whole, else 0.
int pathError(const FileUrl& url) {
    return url.path().contains('\0') ? EINVAL : 0;
}

std::string attempt(std::string_view verb, const FileUrl& url) {
    return fmt::format(R"(Could not {} "{}" in "{}")", verb, url.lastPathComponent(),
                       url.deletingLastPathComponent().lastPathComponent());
}

std::unexpected<SystemError> cannotWrite(std::string_view verb, const FileUrl& url,
                                         int number = errno) {
    return std::unexpected(fileError(number, attempt(verb, url)));
}

std::unexpected<SystemError> cannotRead(std::string_view verb, const FileUrl& url,
                                        int number = errno) {
    return std::unexpected(posixError(number, attempt(verb, url)));
}

/// Repeats a system call that a signal interrupted.
template <typename Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

/// A file that this process makes: it goes away again unless all of it could be written.
class NewFile {
public:
    /// Makes the file at `url`, which nothing may stand at.
    static std::expected<NewFile, SystemError> make(const FileUrl& url) {
        const int problem = pathError(url);
        const int descriptor = problem != 0 ? -1 : uninterrupted([&] {
            return ::open(url.path().c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        });
        if (descriptor < 0) {
            return cannotWrite("create", url, problem != 0 ? problem : errno);
        }
        return NewFile(url, FileDescriptor(descriptor));
    }

    NewFile(NewFile&&) noexcept = default;
    NewFile& operator=(NewFile&&) = delete;

    ~NewFile() {
        if (descriptor_) {
            removeIfStillOurs();
        }
    }

    std::expected<void, SystemError> write(std::span<const std::byte> bytes) {
        while (!bytes.empty()) {
            const auto written = uninterrupted(
                [&] { return ::write(descriptor_.get(), bytes.data(), bytes.size()); });
            if (written < 0) {
                return cannotWrite("write", *url_);
            }
            bytes = bytes.subspan(static_cast<std::size_t>(written));
        }
        return {};
    }

    /// Ends the writing; some file systems tell only now that it failed.
    std::expected<void, SystemError> finish() {
        struct stat made{};
        ::fstat(descriptor_.get(), &made);
        if (::close(descriptor_.release()) != 0 && errno != EINTR) {
            const int number = errno;
            removeIfStill(made);
            return cannotWrite("write", *url_, number);
        }
        return {};
    }

private:
    NewFile(const FileUrl& url, FileDescriptor descriptor)
        : url_(&url), descriptor_(std::move(descriptor)) {}

    void removeIfStillOurs() {
        struct stat made{};
        if (::fstat(descriptor_.get(), &made) == 0) {
            removeIfStill(made);
        }
    }

    void removeIfStill(const struct stat& made) {
        struct stat there{};
        if (::lstat(url_->path().c_str(), &there) == 0 && there.st_dev == made.st_dev &&
            there.st_ino == made.st_ino) {
            ::unlink(url_->path().c_str());
        }
    }

    const FileUrl* url_;
    FileDescriptor descriptor_;
};

} // namespace

std::expected<bool, SystemError> LinuxFileSystem::itemExists(const FileUrl& url) const {
    if (const int problem = pathError(url); problem != 0) {
        return cannotRead("look for", url, problem);
    }
    struct stat status{};
    if (::lstat(url.path().c_str(), &status) == 0) {
        return true;
    }
    if (errno == ENOENT) {
        return false;
    }
    return cannotRead("look for", url);
}

bool LinuxFileSystem::isDirectory(const FileUrl& url) const {
    struct stat status{};
    return pathError(url) == 0 && ::stat(url.path().c_str(), &status) == 0 &&
           S_ISDIR(status.st_mode);
}

std::expected<void, SystemError>
LinuxFileSystem::visitNames(const FileUrl& folder,
                            const std::function<void(std::string_view)>& visitor) const {
    using Directory = std::unique_ptr<DIR, decltype([](DIR* open) { ::closedir(open); })>;
    const int problem = pathError(folder);
    const Directory directory(problem != 0 ? nullptr : ::opendir(folder.path().c_str()));
    if (!directory) {
        return cannotRead("read", folder, problem != 0 ? problem : errno);
    }
    errno = 0;
    while (const auto* const entry = ::readdir(directory.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") {
            visitor(name);
        }
        errno = 0;
    }
    if (errno != 0) {
        return cannotRead("read", folder);
    }
    return {};
}

std::expected<void, SystemError> LinuxFileSystem::writeNew(const FileUrl& url,
                                                           std::span<const std::byte> bytes) {
    auto file = NewFile::make(url);
    if (!file) {
        return std::unexpected(std::move(file.error()));
    }
    if (auto written = file->write(bytes); !written) {
        return written;
    }
    return file->finish();
}

std::expected<void, SystemError> LinuxFileSystem::copyNew(const FileUrl& source,
                                                          const FileUrl& url) {
    const FileDescriptor from(
        uninterrupted([&] { return ::open(source.path().c_str(), O_RDONLY | O_CLOEXEC); }));
    if (!from) {
        return cannotRead("read", source);
    }
    auto file = NewFile::make(url);
    if (!file) {
        return std::unexpected(std::move(file.error()));
    }
    std::array<std::byte, std::size_t{32} * 1024> buffer; // filled before each use
    while (true) {
        const auto count =
            uninterrupted([&] { return ::read(from.get(), buffer.data(), buffer.size()); });
        if (count < 0) {
            return cannotRead("read", source);
        }
        if (count == 0) {
            return file->finish();
        }
        if (auto written = file->write(std::span(buffer).first(static_cast<std::size_t>(count)));
            !written) {
            return written;
        }
    }
}

std::string LinuxFileSystem::displayName(const FileUrl& url) const {
    return std::string(url.lastPathComponent());
}

} // namespace blankwell
