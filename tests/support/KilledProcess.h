#pragma once

#include <gtest/gtest.h>

#include <csignal>
#include <functional>

#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

namespace blankwell {

/// Runs `body` in a child process that is killed in front of its system call number `last`, counted
/// from 0. Whether it was: it may have ended before.
inline bool isKilledAtSystemCall(const std::function<void()>& body, int last) {
    const auto child = ::fork();
    if (child == 0) {
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        ::raise(SIGSTOP);
        body();
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    // Each call stops the child twice, before and after.
    for (int stops = 0; WIFSTOPPED(status) && stops <= 2 * last; ++stops) {
        ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        ::waitpid(child, &status, 0);
    }
    if (!WIFSTOPPED(status)) {
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "the child process failed";
        return false;
    }
    ::kill(child, SIGKILL);
    ::waitpid(child, &status, 0);
    return true;
}

} // namespace blankwell
