#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
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

/// Whether the system call that `child` is stopped in front of makes, moves or removes a file.
inline bool isInFrontOfChange(pid_t child) {
    __ptrace_syscall_info info{};
    if (::ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof info, &info) <= 0 ||
        info.op != PTRACE_SYSCALL_INFO_ENTRY) {
        return false;
    }
    constexpr auto changing = std::to_array<std::uint64_t>(
        {SYS_rename, SYS_renameat, SYS_renameat2, SYS_unlink, SYS_unlinkat, SYS_rmdir, SYS_mkdir,
         SYS_mkdirat, SYS_symlink, SYS_symlinkat, SYS_link, SYS_linkat, SYS_ftruncate});
    const auto& entry = info.entry;
    if (entry.nr == SYS_openat) {
        constexpr std::uint64_t changingFlags = O_CREAT | O_TRUNC;
        return (entry.args[2] & changingFlags) != 0;
    }
    return std::ranges::find(changing, entry.nr) != changing.end();
}

/// Runs `program`, with its arguments, and kills it in front of its change of files number `last`,
/// counted from 0. Whether it was: it may have ended before.
inline bool isKilledAtChange(const std::vector<std::string>& program, int last) {
    const auto child = ::fork();
    if (child == 0) {
        std::vector<char*> arguments;
        for (const auto& argument : program) {
            arguments.push_back(const_cast<char*>(argument.c_str()));
        }
        arguments.push_back(nullptr);
        // Leaks cannot be looked for in a process that is traced.
        ::setenv("ASAN_OPTIONS", "detect_leaks=0", 1);
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        ::raise(SIGSTOP);
        ::execv(arguments[0], arguments.data());
        ::_exit(127);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    constexpr int callStop = SIGTRAP | 0x80;
    for (int changes = 0; WIFSTOPPED(status);) {
        if (WSTOPSIG(status) == callStop && isInFrontOfChange(child) && changes++ == last) {
            ::kill(child, SIGKILL);
            ::waitpid(child, &status, 0);
            return true;
        }
        const bool isOwn = WSTOPSIG(status) == callStop || WSTOPSIG(status) == SIGTRAP ||
                           WSTOPSIG(status) == SIGSTOP;
        ::ptrace(PTRACE_SYSCALL, child, nullptr, isOwn ? 0 : WSTOPSIG(status));
        ::waitpid(child, &status, 0);
    }
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "the program failed";
    return false;
}

} // namespace blankwell
