#include "platform/linux/update/StagingFolder.h"

#include "platform/linux/SystemErrors.h"
#include "platform/linux/update/BundleUse.h"

#include <fmt/core.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace blankwell {
namespace {

using Reason = UpdateFailure::Reason;

constexpr std::string_view archiveSuffix = ".part";

FileUrl placeFor(const FileUrl& bundle) {
    return bundle.deletingLastPathComponent().appending(
        fmt::format(".{}.update", bundle.lastPathComponent()));
}

FileDescriptor openFolder(const FileUrl& url) {
    return FileDescriptor(
        ::open(url.path().c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

/// Whether nobody else can put anything into the folder, and it still stands where it was opened.
bool isOurs(int folder, const FileUrl& url) {
    struct stat opened{};
    struct stat present{};
    return ::fstat(folder, &opened) == 0 && ::lstat(url.path().c_str(), &present) == 0 &&
           opened.st_ino == present.st_ino && opened.st_dev == present.st_dev &&
           opened.st_uid == ::geteuid() && (opened.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

std::unexpected<UpdateFailure> failure(int number) {
    return std::unexpected(UpdateFailure{
        Reason::disk,
        posixError(number, "The place for updates beside the application could not be made")
            .description});
}

std::vector<std::filesystem::path> entries(const FileUrl& folder) {
    std::vector<std::filesystem::path> result;
    std::error_code error;
    for (auto entry = std::filesystem::directory_iterator(folder.path(), error);
         !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        result.push_back(entry->path());
    }
    return result;
}

void removeAll(const std::filesystem::path& path) {
    std::error_code ignored; // what stays is tried again by the next sweep
    std::filesystem::remove_all(path, ignored);
}

bool isArchive(const std::filesystem::path& path) {
    return path.extension() == archiveSuffix;
}

/// Whether `room` holds a bundle that a process runs from.
bool isRoomUsed(const std::filesystem::path& room) {
    return std::ranges::any_of(entries(FileUrl(room.string())), [](const auto& bundle) {
        std::error_code error;
        return std::filesystem::is_directory(std::filesystem::symlink_status(bundle, error)) &&
               BundleUse::isUsed(FileUrl(bundle.string()));
    });
}

} // namespace

StagingFolder::StagingFolder(FileUrl url, FileDescriptor descriptor)
    : url_(std::move(url)), descriptor_(std::move(descriptor)) {}

std::expected<StagingFolder, UpdateFailure> StagingFolder::hold(const FileUrl& bundle) {
    auto url = placeFor(bundle);
    if (::mkdir(url.path().c_str(), S_IRWXU) != 0 && errno != EEXIST) {
        return failure(errno);
    }
    auto folder = openFolder(url);
    if (!folder) {
        return failure(errno);
    }
    if (::flock(folder.get(), LOCK_EX | LOCK_NB) != 0) {
        return std::unexpected(UpdateFailure{
            Reason::disk, "Blankwell+ is being updated already, in another session."});
    }
    if (!isOurs(folder.get(), url)) {
        return failure(EPERM);
    }
    return StagingFolder(std::move(url), std::move(folder));
}

void StagingFolder::sweep(const FileUrl& bundle) {
    const auto url = placeFor(bundle);
    if (::access(url.path().c_str(), F_OK) != 0) {
        return; // as it mostly is, and then none is to be made
    }
    if (const auto staging = hold(bundle)) {
        staging->removeRooms();
        ::rmdir(url.path().c_str()); // which leaves it alone while there is something in it
    }
}

void StagingFolder::remove(const FileUrl& bundle) {
    const auto url = placeFor(bundle);
    if (const auto folder = openFolder(url); !folder || !isOurs(folder.get(), url)) {
        return;
    }
    for (const auto& entry : entries(url)) {
        if (isArchive(entry) || !isRoomUsed(entry)) {
            removeAll(entry);
        }
    }
    ::rmdir(url.path().c_str());
}

FileUrl StagingFolder::archive(std::string_view name) const {
    auto wanted = url_.appending(fmt::format("{}{}", name, archiveSuffix));
    for (const auto& entry : entries(url_)) {
        if (isArchive(entry) && entry != wanted.path()) {
            removeAll(entry);
        }
    }
    return wanted;
}

std::expected<FileUrl, int> StagingFolder::makeRoom() const {
    auto pattern = url_.appending("room-XXXXXX").path();
    if (::mkdtemp(pattern.data()) == nullptr) {
        return std::unexpected(errno);
    }
    return FileUrl(std::move(pattern));
}

std::expected<void, int> StagingFolder::flush() const {
    if (::syncfs(descriptor_.get()) != 0) {
        return std::unexpected(errno);
    }
    return {};
}

void StagingFolder::removeRooms() const {
    for (const auto& entry : entries(url_)) {
        if (!isArchive(entry) && !isRoomUsed(entry)) {
            removeAll(entry);
        }
    }
}

} // namespace blankwell
