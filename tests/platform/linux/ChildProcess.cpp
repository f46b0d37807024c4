#include "platform/linux/ChildProcess.h"

#include <grp.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <exception>
#include <string_view>
#include <system_error>

namespace blankwell {
namespace {

constexpr ::uid_t nobody = 65534;

void check(int result, std::string_view what) {
    if (result != 0) {
        throw std::system_error(errno, std::generic_category(), std::string(what));
    }
}

[[noreturn]] void answer(int pipe, const std::function<std::string()>& run) {
    std::string text;
    try {
        text = run();
    } catch (const std::exception& error) {
        text = std::string("(exception: ") + error.what() + ")";
    }
    const auto written = ::write(pipe, text.data(), text.size());
    ::_exit(written == static_cast<::ssize_t>(text.size()) ? 0 : 1);
}

std::string readAll(int pipe) {
    std::string text;
    std::array<char, 4096> buffer{};
    for (::ssize_t count = 0; (count = ::read(pipe, buffer.data(), buffer.size())) > 0;) {
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return text;
}

} // namespace

std::string inChild(const std::function<std::string()>& run) {
    std::array<int, 2> pipe{};
    check(::pipe(pipe.data()), "pipe");
    std::fflush(nullptr);
    const ::pid_t child = ::fork();
    if (child == 0) {
        answer(pipe[1], run);
    }
    ::close(pipe[1]);
    auto text = readAll(pipe[0]);
    ::close(pipe[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    return status == 0 ? text : "(exit " + std::to_string(status) + ") " + text;
}

std::string asUnprivileged(const std::function<std::string()>& run) {
    return inChild([&] {
        dropPrivileges();
        return run();
    });
}

std::string withOwnMounts(const std::function<std::string()>& run) {
    return inChild([&] {
        check(::unshare(CLONE_NEWNS), "unshare");
        check(::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr), "make mounts private");
        return run();
    });
}

void mountNew(const std::string& kind, const std::string& folder) {
    check(::mount(kind.c_str(), folder.c_str(), kind.c_str(), 0, nullptr), "mount");
}

void unmount(const std::string& folder) {
    check(::umount2(folder.c_str(), 0), "umount");
}

void dropPrivileges() {
    check(::setgroups(0, nullptr), "setgroups");
    check(::setresgid(nobody, nobody, nobody), "setresgid");
    check(::setresuid(nobody, nobody, nobody), "setresuid");
}

} // namespace blankwell
