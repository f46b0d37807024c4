#include "platform/linux/LinuxBookmarks.h"

#include "platform/linux/BookmarkErrors.h"
#include "platform/linux/LinuxAccessScopes.h"

#include <cerrno>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

namespace blankwell {
namespace {

std::expected<std::string, int> withoutLinks(const std::string& path) {
    std::error_code error;
    auto location = std::filesystem::canonical(path, error);
    if (error) {
        return std::unexpected(error.value());
    }
    return std::move(location).string();
}

/// The identities from the folder `location` up to the root of its mount, whose path is then in
/// `mountPoint`.
std::expected<std::vector<FolderIdentity>, int> identifyUpwards(const std::string& location,
                                                                std::string& mountPoint) {
    std::vector<FolderIdentity> identities;
    for (FileUrl folder(location);; folder = folder.deletingLastPathComponent()) {
        const auto isMounted = isMountPoint(folder.path());
        auto identity = identifyFolder(folder.path());
        if (!isMounted || !identity) {
            return std::unexpected(isMounted ? identity.error() : isMounted.error());
        }
        identities.push_back(std::move(*identity));
        if (*isMounted || folder.path() == "/") {
            mountPoint = folder.path();
            return identities;
        }
    }
}

std::expected<BookmarkBlob, int> describe(const std::string& path) {
    const auto location = withoutLinks(path);
    if (!location) {
        return std::unexpected(location.error());
    }
    BookmarkBlob blob{.path = path, .location = *location};
    auto identities = identifyUpwards(blob.location, blob.mountPoint);
    if (!identities) {
        return std::unexpected(identities.error());
    }
    const auto volume = identifyVolume(blob.mountPoint);
    if (!volume) {
        return std::unexpected(volume.error());
    }
    blob.volume = *volume;
    blob.folder = std::move(identities->front());
    blob.ancestors.assign(std::make_move_iterator(identities->begin() + 1),
                          std::make_move_iterator(identities->end()));
    blob.strength =
        blob.folder.isUnique() ? identityStrength(volume->kind) : IdentityStrength::weak;
    return blob;
}

/// Whether the volume of the bookmark, and no other, is mounted where it was.
std::expected<bool, int> isVolumeMounted(const BookmarkBlob& blob) {
    const auto isMounted = isMountPoint(blob.mountPoint);
    if (!isMounted || !*isMounted) {
        return isMounted;
    }
    if (identifyVolume(blob.mountPoint) != blob.volume) {
        return false;
    }
    if (blob.strength == IdentityStrength::weak) {
        return true;
    }
    return leadsTo(blob.mountPoint, blob.mountRoot());
}

std::optional<SystemError> volumeError(const BookmarkBlob& blob) {
    const FileUrl folder(blob.path);
    const auto isMounted = isVolumeMounted(blob);
    if (!isMounted && isMounted.error() == EACCES) {
        return folderError(folder, EACCES);
    }
    return isMounted == true ? std::nullopt : std::optional(volumeNotMounted(folder));
}

/// Whether looking at a path failed because nothing is there, so that looking elsewhere makes
/// sense.
bool meansNothingThere(int number) {
    return number == ENOENT || number == ENOTDIR || number == ELOOP;
}

/// The way of file systems with weak identities: whatever folder is at the path is the folder.
std::expected<std::string, SystemError> locateByPath(const BookmarkBlob& blob) {
    const FileUrl folder(blob.path);
    if (auto error = volumeError(blob)) {
        return std::unexpected(std::move(*error));
    }
    const auto there = identifyFolder(blob.path);
    if (!there) {
        return std::unexpected(meansNothingThere(there.error())
                                   ? folderIsGone(folder)
                                   : folderError(folder, there.error()));
    }
    return blob.path;
}

/// Whether the bookmark's folder is where the bookmark says.
std::expected<bool, int> isAtItsPath(const BookmarkBlob& blob) {
    if (!blob.folder.handle.empty() && hasRandomHandles(blob.volume.kind)) {
        return leadsToHandle(blob.path, blob.folder);
    }
    return leadsTo(blob.path, blob.folder);
}

/// Whether the user named a link, and the link was made to lead elsewhere since: what it led to is
/// not meant any more, even if it is still there.
bool wasRetargeted(const BookmarkBlob& blob) {
    return blob.path != blob.location && withoutLinks(blob.path) != blob.location;
}

/// The innermost folder above the bookmark's that is still where it was.
std::optional<std::string> nearestAncestor(const BookmarkBlob& blob) {
    FileUrl place(blob.location);
    for (const auto& ancestor : blob.ancestors) {
        place = place.deletingLastPathComponent();
        if (leadsTo(place.path(), ancestor) == true) {
            const auto path = withoutLinks(place.path());
            return path ? std::optional(*path) : std::nullopt;
        }
    }
    return std::nullopt;
}

} // namespace

LinuxBookmarks::LinuxBookmarks(LinuxAccessScopes& scopes, FolderSearch::Limits limits)
    : scopes_(scopes), limits_(limits) {}

std::expected<Bytes, SystemError> LinuxBookmarks::create(const FileUrl& folder) {
    const auto url = folder.standardized();
    if (!url.path().starts_with('/') || url.path().contains('\0')) {
        return std::unexpected(folderError(url, EINVAL));
    }
    const auto blob = describe(url.path());
    if (!blob) {
        return std::unexpected(folderError(url, blob.error()));
    }
    if (auto refusal = refusalToSearch(url)) {
        return std::unexpected(std::move(*refusal));
    }
    scopes_.admit(url);
    return encodeBookmark(*blob);
}

std::expected<ResolvedBookmark, SystemError>
LinuxBookmarks::resolve(std::span<const std::byte> bookmark) {
    const auto* const blob = decoded(bookmark);
    if (blob == nullptr) {
        return std::unexpected(unreadableBookmark());
    }
    auto path = locate(*blob);
    if (!path) {
        return std::unexpected(std::move(path.error()));
    }
    const bool isStale = *path != blob->path;
    auto url = FileUrl(std::move(*path)).standardized();
    if (auto refusal = refusalToWriteIn(url)) {
        return std::unexpected(std::move(*refusal));
    }
    scopes_.admit(url);
    return ResolvedBookmark{.url = std::move(url), .isStale = isStale};
}

/// What `bookmark` says, valid until the next call; nullptr if it is none.
const BookmarkBlob* LinuxBookmarks::decoded(std::span<const std::byte> bookmark) {
    if (!lastBlob_ || textOf(bookmark) != textOf(lastBookmark_)) {
        lastBlob_ = decodeBookmark(bookmark);
        lastBookmark_.assign(bookmark.begin(), bookmark.end());
    }
    return lastBlob_ ? &*lastBlob_ : nullptr;
}

std::expected<std::string, SystemError> LinuxBookmarks::locate(const BookmarkBlob& blob) const {
    if (blob.strength == IdentityStrength::weak) {
        return locateByPath(blob);
    }
    const FileUrl folder(blob.path);
    const auto isThere = isAtItsPath(blob);
    // The root folders of two volumes can look the same; all other identities are unique.
    const bool isMountRoot = blob.ancestors.empty();
    if (isThere == true && !isMountRoot) {
        return blob.path;
    }
    if (!isThere && !meansNothingThere(isThere.error())) {
        return std::unexpected(folderError(folder, isThere.error()));
    }
    if (auto error = volumeError(blob)) {
        return std::unexpected(std::move(*error));
    }
    if (isThere == true) {
        return blob.path;
    }
    if (isThere && wasRetargeted(blob)) {
        return std::unexpected(folderWasReplaced(folder));
    }
    if (auto path = find(blob)) {
        return std::move(*path);
    }
    return std::unexpected(isThere ? folderWasReplaced(folder) : folderIsGone(folder));
}

std::optional<std::string> LinuxBookmarks::find(const BookmarkBlob& blob) const {
    const auto path = pathByHandle(blob.folder, blob.mountPoint);
    if (path) {
        return *path;
    }
    const bool isKnownToBeDeleted = path.error() == ESTALE;
    const auto start = isKnownToBeDeleted ? std::nullopt : nearestAncestor(blob);
    return start ? FolderSearch(blob.folder, limits_).around(*start) : std::nullopt;
}

} // namespace blankwell
