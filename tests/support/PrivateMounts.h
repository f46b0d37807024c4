#pragma once

#include <gtest/gtest.h>

#include <fstream>
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

/// Puts an empty folder in the place of the folder `path`. Call `enterPrivateMounts` before.
inline void mountEmptyFolder(const std::string& path) {
    ASSERT_EQ(::mount("tmpfs", path.c_str(), "tmpfs", 0, "mode=755"), 0) << path;
}

/// Puts the file `file` in the place of the file `path`. Call `enterPrivateMounts` before.
inline void mountFile(const std::string& file, const std::string& path) {
    ASSERT_EQ(::mount(file.c_str(), path.c_str(), nullptr, MS_BIND, nullptr), 0) << path;
}

} // namespace blankwell
