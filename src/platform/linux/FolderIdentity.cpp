#include "platform/linux/FolderIdentity.h"

#include "platform/linux/FileDescriptor.h"

#include <fmt/core.h>

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstring>

namespace blankwell {
namespace {

/// The kernel's `struct file_handle` with room for the longest handle.
struct HandleBuffer {
    static constexpr std::size_t headerSize = sizeof(::file_handle);

    HandleBuffer() { get()->handle_bytes = MAX_HANDLE_SZ; }

    ::file_handle* get() { return reinterpret_cast<::file_handle*>(storage.data()); }

    char* bytes() { return reinterpret_cast<char*>(storage.data()) + headerSize; }

    alignas(::file_handle) std::array<std::byte, headerSize + MAX_HANDLE_SZ> storage{};
};

std::expected<struct ::statx, int> statusOf(const std::string& path) {
    struct ::statx status{};
    if (::statx(AT_FDCWD, path.c_str(), 0, STATX_TYPE | STATX_INO | STATX_BTIME, &status) != 0) {
        return std::unexpected(errno);
    }
    return status;
}

FolderIdentity identityWithoutHandle(const struct ::statx& status) {
    FolderIdentity identity{.inode = status.stx_ino};
    if ((status.stx_mask & STATX_BTIME) != 0) {
        identity.birthTime = {.seconds = status.stx_btime.tv_sec,
                              .nanoseconds = status.stx_btime.tv_nsec};
    }
    return identity;
}

/// Whether the kernel gives `path` a handle, which is then in `buffer`.
bool makeHandle(const std::string& path, HandleBuffer& buffer) {
    int mountId = 0;
    return ::name_to_handle_at(AT_FDCWD, path.c_str(), buffer.get(), &mountId, AT_SYMLINK_FOLLOW) ==
           0;
}

/// The kernel's own name of an open folder.
std::expected<std::string, int> nameOf(const FileDescriptor& folder) {
    std::array<char, PATH_MAX> name{};
    const auto link = fmt::format("/proc/self/fd/{}", folder.get());
    const auto length = ::readlink(link.c_str(), name.data(), name.size());
    if (length < 0) {
        return std::unexpected(errno);
    }
    return std::string(name.data(), static_cast<std::size_t>(length));
}

} // namespace

std::expected<FolderIdentity, int> identifyFolder(const std::string& path) {
    const auto status = statusOf(path);
    if (!status) {
        return std::unexpected(status.error());
    }
    if (!S_ISDIR(status->stx_mode)) {
        return std::unexpected(ENOTDIR);
    }
    auto identity = identityWithoutHandle(*status);
    if (HandleBuffer buffer; makeHandle(path, buffer)) {
        identity.handleType = buffer.get()->handle_type;
        identity.handle.assign(buffer.bytes(), buffer.get()->handle_bytes);
    }
    return identity;
}

std::expected<bool, int> leadsTo(const std::string& path, const FolderIdentity& identity) {
    const auto status = statusOf(path);
    if (!status) {
        return std::unexpected(status.error());
    }
    const auto there = identityWithoutHandle(*status);
    return S_ISDIR(status->stx_mode) && there.inode == identity.inode &&
           there.birthTime == identity.birthTime &&
           (identity.handle.empty() || leadsToHandle(path, identity) == true);
}

std::expected<bool, int> leadsToHandle(const std::string& path, const FolderIdentity& identity) {
    HandleBuffer buffer;
    if (!makeHandle(path, buffer)) {
        return errno == EOPNOTSUPP ? std::expected<bool, int>(false) : std::unexpected(errno);
    }
    return buffer.get()->handle_type == identity.handleType &&
           std::string_view(buffer.bytes(), buffer.get()->handle_bytes) == identity.handle;
}

std::expected<std::string, int> pathByHandle(const FolderIdentity& identity,
                                             const std::string& anyFolder) {
    if (identity.handle.empty() || identity.handle.size() > MAX_HANDLE_SZ) {
        return std::unexpected(EOPNOTSUPP);
    }
    HandleBuffer buffer;
    buffer.get()->handle_type = identity.handleType;
    buffer.get()->handle_bytes = static_cast<unsigned>(identity.handle.size());
    std::memcpy(buffer.bytes(), identity.handle.data(), identity.handle.size());

    const FileDescriptor mount(::open(anyFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!mount) {
        return std::unexpected(errno);
    }
    const FileDescriptor folder(
        ::open_by_handle_at(mount.get(), buffer.get(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!folder) {
        return std::unexpected(errno);
    }
    auto path = nameOf(folder);
    // The kernel also names what is deleted, or outside of the part of the volume that is mounted.
    if (path && leadsTo(*path, identity) != true) {
        return std::unexpected(ESTALE);
    }
    return path;
}

} // namespace blankwell
