#include "platform/linux/BookmarkErrors.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace blankwell {
namespace {

/// 0, or the `errno` value that speaks against it.
int permissionError(const FileUrl& folder, int mode) {
    return ::faccessat(AT_FDCWD, folder.path().c_str(), mode, AT_EACCESS) == 0 ? 0 : errno;
}

} // namespace

SystemError unreadableBookmark() {
    return cocoaError(CocoaCode::fileReadCorruptFile,
                      "The saved access to this folder cannot be read.");
}

SystemError folderIsGone(const FileUrl& folder) {
    return cocoaError(
        CocoaCode::fileNoSuchFile,
        fmt::format("The folder \"{}\" is not there any more.", folder.lastPathComponent()));
}

SystemError folderWasReplaced(const FileUrl& folder) {
    return cocoaError(CocoaCode::fileNoSuchFile,
                      fmt::format("The folder \"{}\" is not there any more; something else has "
                                  "taken its place.",
                                  folder.lastPathComponent()));
}

SystemError volumeNotMounted(const FileUrl& folder) {
    return cocoaError(CocoaCode::fileReadUnknown,
                      fmt::format("The volume that holds the folder \"{}\" is not mounted.",
                                  folder.lastPathComponent()));
}

SystemError folderError(const FileUrl& folder, int number) {
    const auto name = folder.lastPathComponent();
    switch (number) {
    case ENOENT:
        return cocoaError(CocoaCode::fileNoSuchFile,
                          fmt::format("The folder \"{}\" does not exist.", name));
    case ENOTDIR:
        return cocoaError(CocoaCode::fileReadUnknown, fmt::format("\"{}\" is not a folder.", name));
    case EACCES:
    case EPERM:
        return cocoaError(
            CocoaCode::fileReadNoPermission,
            fmt::format("You do not have permission to open the folder \"{}\".", name));
    default:
        return cocoaError(CocoaCode::fileReadUnknown,
                          fmt::format("The folder \"{}\" cannot be opened: {}.", name,
                                      std::generic_category().message(number)));
    }
}

std::optional<SystemError> refusalToWriteIn(const FileUrl& folder) {
    const int number = permissionError(folder, W_OK | X_OK);
    if (number == 0) {
        return std::nullopt;
    }
    if (auto refusal = refusalToSearch(folder)) {
        return refusal;
    }
    if (number == EROFS) {
        return cocoaError(CocoaCode::fileWriteVolumeReadOnly,
                          fmt::format("The volume that holds the folder \"{}\" is read-only.",
                                      folder.lastPathComponent()));
    }
    return cocoaError(
        CocoaCode::fileWriteNoPermission,
        fmt::format("You do not have permission to create files in the folder \"{}\".",
                    folder.lastPathComponent()));
}

std::optional<SystemError> refusalToSearch(const FileUrl& folder) {
    const int number = permissionError(folder, X_OK);
    return number == 0 ? std::nullopt : std::optional(folderError(folder, number));
}

} // namespace blankwell
