#include "platform/linux/GioTrash.h"

#include "platform/linux/SystemErrors.h"

#include <fmt/core.h>
#include <gio/gio.h>

#include <cerrno>
#include <memory>
#include <string>

namespace blankwell {
namespace {

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};

struct FreeError {
    void operator()(GError* error) const { g_error_free(error); }
};

using File = std::unique_ptr<GFile, Unref>;

File fileAt(const FileUrl& url) {
    return File(g_file_new_for_path(url.path().c_str()));
}

int errorNumber(const GError& error) {
    if (error.domain != G_IO_ERROR) {
        return EIO;
    }
    switch (error.code) {
    case G_IO_ERROR_NOT_FOUND:
        return ENOENT;
    case G_IO_ERROR_PERMISSION_DENIED:
        return EACCES;
    case G_IO_ERROR_READ_ONLY:
        return EROFS;
    case G_IO_ERROR_NO_SPACE:
        return ENOSPC;
    case G_IO_ERROR_NOT_SUPPORTED:
        return ENOTSUP;
    default:
        return EIO;
    }
}

/// Takes `owned` over.
std::unexpected<SystemError> failure(GError* owned, const FileUrl& url) {
    const std::unique_ptr<GError, FreeError> error(owned);
    auto described = fileError(errorNumber(*error), "");
    described.description =
        fmt::format("\"{}\" cannot be moved to the Trash: {}.", url.path(), error->message);
    return std::unexpected(std::move(described));
}

} // namespace

std::expected<void, SystemError> trashWithGio(const FileUrl& url) {
    GError* error = nullptr;
    if (g_file_trash(fileAt(url).get(), nullptr, &error) == 0) {
        return failure(error, url);
    }
    return {};
}

std::expected<void, SystemError> checkTrashTakes(const FileUrl& url) {
    GError* error = nullptr;
    const std::unique_ptr<GFileInfo, Unref> info(
        g_file_query_info(fileAt(url).get(), G_FILE_ATTRIBUTE_ACCESS_CAN_TRASH,
                          G_FILE_QUERY_INFO_NOFOLLOW_SYMLINKS, nullptr, &error));
    if (!info) {
        return failure(error, url);
    }
    if (g_file_info_get_attribute_boolean(info.get(), G_FILE_ATTRIBUTE_ACCESS_CAN_TRASH) == 0) {
        return std::unexpected(SystemError{
            SystemError::Domain::posix, ENOTSUP,
            fmt::format("The Trash does not take \"{}\" from where it stands.", url.path())});
    }
    return {};
}

} // namespace blankwell
