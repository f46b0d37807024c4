#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <utility>

namespace blankwell {

/// The exit status of a child process that runs `work`, which returns the status; 255 where it
/// ended otherwise. The child sees the test's memory as it was, and changes none of it.
template <typename Work>
int statusOfChild(Work work) {
    const auto child = ::fork();
    if (child == 0) {
        int status = 254;
        try {
            status = work();
        } catch (const std::exception&) {
            status = 253;
        }
        ::_exit(status);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 255;
}

/// As `statusOfChild`, with the rights of a user who owns nothing. Needs to be root or already such
/// a user.
template <typename Work>
int statusOfUnprivilegedChild(Work work) {
    return statusOfChild([work = std::move(work)] {
        constexpr uid_t nobody = 65534;
        if (::getuid() == 0 && (::setresgid(nobody, nobody, nobody) != 0 ||
                                ::setresuid(nobody, nobody, nobody) != 0)) {
            return 252;
        }
        return work();
    });
}

} // namespace blankwell
