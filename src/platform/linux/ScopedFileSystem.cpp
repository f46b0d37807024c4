#include "platform/linux/ScopedFileSystem.h"

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/LinuxAccessScopes.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <linux/openat2.h>
#include <sys/syscall.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace blankwell {
namespace {

/// Whether no component of `path` is a link, in one look of the kernel. Also false where the kernel
/// does not answer (before Linux 5.6, or a filter of system calls).
bool isFreeOfLinks(const FileUrl& path) {
    const ::open_how how{.flags = O_PATH | O_CLOEXEC, .mode = 0, .resolve = RESOLVE_NO_SYMLINKS};
    return static_cast<bool>(FileDescriptor(
        static_cast<int>(::syscall(SYS_openat2, AT_FDCWD, path.path().c_str(), &how, sizeof how))));
}

/// `url` with links resolved; nothing where it does not lead anywhere.
std::optional<FileUrl> realPlace(const FileUrl& url) {
    std::error_code error;
    auto place = std::filesystem::canonical(url.path(), error);
    return error ? std::nullopt : std::optional(FileUrl(std::move(place).string()));
}

SystemError notGranted(const FileUrl& folder) {
    return cocoaError(
        CocoaCode::fileWriteNoPermission,
        fmt::format("Blankwell+ has no access to the folder \"{}\".", folder.lastPathComponent()));
}

SystemError noSuchFolder(const FileUrl& folder) {
    return cocoaError(CocoaCode::fileNoSuchFile,
                      fmt::format("The folder \"{}\" does not exist.", folder.lastPathComponent()));
}

} // namespace

ScopedFileSystem::ScopedFileSystem(FileSystem& files, const LinuxAccessScopes& scopes)
    : files_(files), scopes_(scopes) {}

std::expected<bool, SystemError> ScopedFileSystem::itemExists(const FileUrl& url) const {
    return files_.itemExists(url);
}

bool ScopedFileSystem::isDirectory(const FileUrl& url) const {
    return files_.isDirectory(url);
}

std::expected<void, SystemError>
ScopedFileSystem::visitNames(const FileUrl& folder,
                             const std::function<void(std::string_view)>& visitor) const {
    return files_.visitNames(folder, visitor);
}

std::expected<void, SystemError> ScopedFileSystem::writeNew(const FileUrl& url,
                                                            std::span<const std::byte> bytes) {
    // What was tested is what must be written: `..` means the same by text and on the disk only
    // once it is gone.
    const auto target = url.standardized();
    if (auto error = refusal(target)) {
        return std::unexpected(std::move(*error));
    }
    return files_.writeNew(target, bytes);
}

std::expected<void, SystemError> ScopedFileSystem::copyNew(const FileUrl& source,
                                                           const FileUrl& url) {
    const auto target = url.standardized();
    if (auto error = refusal(target)) {
        return std::unexpected(std::move(*error));
    }
    return files_.copyNew(source, target);
}

std::string ScopedFileSystem::displayName(const FileUrl& url) const {
    return files_.displayName(url);
}

std::optional<SystemError> ScopedFileSystem::refusal(const FileUrl& url) const {
    const auto folder = url.deletingLastPathComponent();
    const auto granted = scopes_.openFoldersCovering(folder);
    if (granted.empty()) {
        return notGranted(folder);
    }
    // The same path leads to the same folder, and without links the path itself tells.
    if (std::ranges::find(granted, folder) != granted.end() || isFreeOfLinks(folder)) {
        return std::nullopt;
    }
    const auto place = realPlace(folder);
    if (!place) {
        return noSuchFolder(folder);
    }
    const bool isInside = std::ranges::any_of(granted, [&](const FileUrl& each) {
        const auto root = realPlace(each);
        return root && covers(*root, *place);
    });
    return isInside ? std::nullopt : std::optional(notGranted(folder));
}

} // namespace blankwell
