#include "platform/linux/FolderSearch.h"

#include "base/FileUrl.h"
#include "platform/linux/FileDescriptor.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <memory>
#include <string_view>
#include <utility>

namespace blankwell {
namespace {

/// `STATX_MNT_ID` of Linux 5.8, which the C library's header does not know yet.
constexpr unsigned mountIdMask = 0x1000;

struct Station {
    std::uint64_t inode = 0;
    std::uint64_t mount = 0;
};

using Directory = std::unique_ptr<DIR, decltype([](DIR* open) { ::closedir(open); })>;

Directory openFolder(const std::string& path) {
    FileDescriptor folder(
        ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK));
    Directory directory(folder ? ::fdopendir(folder.get()) : nullptr);
    if (directory) {
        std::ignore = folder.release();
    }
    return directory;
}

std::optional<Station> stationOf(const std::string& path) {
    struct ::statx status{};
    if (::statx(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW, STATX_INO | mountIdMask, &status) !=
        0) {
        return std::nullopt;
    }
    return Station{.inode = status.stx_ino, .mount = status.stx_mnt_id};
}

bool canBeFolder(const ::dirent& entry) {
    const std::string_view name = entry.d_name;
    return (entry.d_type == DT_DIR || entry.d_type == DT_UNKNOWN) && name != "." && name != "..";
}

} // namespace

FolderSearch::FolderSearch(const FolderIdentity& wanted, Limits limits)
    : wanted_(wanted), limits_(limits), deadline_(std::chrono::steady_clock::now() + limits.time) {}

std::optional<std::string> FolderSearch::around(const std::string& start) {
    const auto station = stationOf(start);
    if (!station) {
        return std::nullopt;
    }
    mount_ = station->mount;
    queue_.push_back({.path = start, .isAbove = true});
    while (!queue_.empty() && !isOverLimit()) {
        const auto place = std::move(queue_.front());
        queue_.pop_front();
        if (auto found = visit(place)) {
            return found;
        }
    }
    return std::nullopt;
}

std::optional<std::string> FolderSearch::visit(const Place& place) {
    const auto station = stationOf(place.path);
    if (!station || station->mount != mount_) {
        return std::nullopt;
    }
    if (auto found = list(place)) {
        return found;
    }
    if (place.isAbove) {
        climbFrom(place, station->inode);
    }
    return std::nullopt;
}

std::optional<std::string> FolderSearch::list(const Place& place) {
    const auto folder = openFolder(place.path);
    const FileUrl url(place.path);
    while (const auto* const entry = folder ? ::readdir(folder.get()) : nullptr) {
        if (++entries_ > limits_.entries) {
            return std::nullopt;
        }
        if (!canBeFolder(*entry) || (place.isAbove && entry->d_ino == place.from)) {
            continue;
        }
        auto path = url.appending(entry->d_name).path();
        if (entry->d_ino == wanted_.inode && leadsTo(path, wanted_) == true) {
            return path;
        }
        queue_.push_back({.path = std::move(path)});
    }
    return std::nullopt;
}

void FolderSearch::climbFrom(const Place& place, std::uint64_t inode) {
    auto parent = FileUrl(place.path).deletingLastPathComponent().path();
    if (parent != place.path) {
        queue_.push_back({.path = std::move(parent), .isAbove = true, .from = inode});
    }
}

bool FolderSearch::isOverLimit() const {
    return entries_ > limits_.entries || std::chrono::steady_clock::now() >= deadline_;
}

} // namespace blankwell
