#pragma once

#include <cerrno>
#include <fstream>
#include <string>
#include <system_error>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace blankwell {

/// Throws, with what the system says, unless `isDone`: a test must not go on in mounts that others
/// see.
inline void requireMounts(bool isDone, const std::string& what) {
    if (!isDone) {
        throw std::system_error(errno, std::generic_category(), what);
    }
}

/// Gives this process a view of its own of what is mounted where: what it mounts from now on only
/// it and its children see. A process that is not root gets a user namespace too, in which it is
/// the user `user`.
inline void enterPrivateMounts(uid_t user = ::getuid()) {
    const auto outside = ::getuid();
    const auto group = ::getgid();
    if (::unshare(CLONE_NEWNS) != 0) {
        requireMounts(::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0, "no namespaces for tests here");
        std::ofstream("/proc/self/uid_map") << user << ' ' << outside << " 1";
        std::ofstream("/proc/self/setgroups") << "deny"; // else the kernel refuses the next line
        std::ofstream("/proc/self/gid_map") << group << ' ' << group << " 1";
    }
    requireMounts(::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0, "/");
}

/// Mounts a new file system of the kind `kind` at the folder `path`; `options` as its manual has
/// them. Call `enterPrivateMounts` before.
inline void mountNew(const char* kind, const std::string& path, const char* options = nullptr,
                     unsigned long flags = 0) {
    requireMounts(::mount(kind, path.c_str(), kind, flags, options) == 0, path);
}

/// Mounts a file system in memory at the folder `path`; `options` as for tmpfs(5), such as
/// "size=64k". Call `enterPrivateMounts` before.
inline void mountTmpfs(const std::string& path, const char* options = nullptr,
                       unsigned long flags = 0) {
    mountNew("tmpfs", path, options, flags);
}

/// Puts an empty folder in the place of the folder `path`. Call `enterPrivateMounts` before.
inline void mountEmptyFolder(const std::string& path) {
    mountTmpfs(path, "mode=755");
}

/// Puts the file or folder `from` in the place of `path`. Call `enterPrivateMounts` before.
inline void bindMount(const std::string& from, const std::string& path) {
    requireMounts(::mount(from.c_str(), path.c_str(), nullptr, MS_BIND, nullptr) == 0, path);
}

/// Takes away what is mounted at `path`. Call `enterPrivateMounts` before.
inline void unmount(const std::string& path) {
    requireMounts(::umount2(path.c_str(), 0) == 0, path);
}

} // namespace blankwell
