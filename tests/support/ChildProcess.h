#pragma once

#include "support/PrivateMounts.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <exception>
#include <functional>

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

namespace blankwell {

/// Runs `body` in a child process, which may change what a process cannot take back: its user, its
/// mounts. An expectation that fails there is printed there and fails the calling test too.
inline void inChildProcess(const std::function<void()>& body) {
    std::fflush(nullptr);
    const auto child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        try {
            body();
        } catch (const std::exception& exception) {
            ADD_FAILURE() << "thrown in the child process: " << exception.what();
        }
        std::fflush(nullptr);
        ::_exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0) << "the child process failed";
}

/// As `inChildProcess`, with a view of its own of what is mounted where: what is mounted there is
/// gone with the process.
inline void withPrivateMounts(const std::function<void()>& body) {
    inChildProcess([&] {
        enterPrivateMounts();
        body();
    });
}

/// Gives up the rights of root, for good: a user who owns nothing. Call it in a child process. A
/// process that is not root keeps its user.
inline void becomeUnprivileged() {
    constexpr uid_t nobody = 65534;
    if (::getuid() == 0) {
        ASSERT_EQ(::setgroups(0, nullptr), 0);
        ASSERT_EQ(::setresgid(nobody, nobody, nobody), 0);
        ASSERT_EQ(::setresuid(nobody, nobody, nobody), 0);
    }
}

/// As `inChildProcess`, as the user of `becomeUnprivileged`.
inline void withoutPrivilege(const std::function<void()>& body) {
    inChildProcess([&] {
        becomeUnprivileged();
        body();
    });
}

} // namespace blankwell
