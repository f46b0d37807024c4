#pragma once

#include "support/ChildProcess.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <string>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace blankwell {

/// Gives this process a view of its own of what is mounted where: what it mounts from now on only
/// it and its children see. A process that is not root gets a user namespace too, in which it is
/// the user `user`.
inline void enterPrivateMounts(uid_t user = ::getuid()) {
    const auto outside = ::getuid();
    const auto group = ::getgid();
    if (::unshare(CLONE_NEWNS) != 0) {
        ASSERT_EQ(::unshare(CLONE_NEWUSER | CLONE_NEWNS), 0) << "no namespaces for tests here";
        std::ofstream("/proc/self/uid_map") << user << ' ' << outside << " 1";
        std::ofstream("/proc/self/setgroups") << "deny"; // else the kernel refuses the next line
        std::ofstream("/proc/self/gid_map") << group << ' ' << group << " 1";
    }
    ASSERT_EQ(::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr), 0);
}

/// As `inChildProcess`, with a view of its own of what is mounted where: what is mounted there is
/// gone with the process.
inline void withPrivateMounts(const std::function<void()>& body) {
    inChildProcess([&] {
        enterPrivateMounts();
        body();
    });
}

/// Mounts a new file system of the kind `kind` at the folder `path`; `options` as its manual has
/// them. Call `enterPrivateMounts` before.
inline void mountNew(const char* kind, const std::string& path, const char* options = nullptr,
                     unsigned long flags = 0) {
    ASSERT_EQ(::mount(kind, path.c_str(), kind, flags, options), 0) << path;
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
    ASSERT_EQ(::mount(from.c_str(), path.c_str(), nullptr, MS_BIND, nullptr), 0) << path;
}

/// Takes away what is mounted at `path`. Call `enterPrivateMounts` before.
inline void unmount(const std::string& path) {
    ASSERT_EQ(::umount2(path.c_str(), 0), 0) << path;
}

} // namespace blankwell
