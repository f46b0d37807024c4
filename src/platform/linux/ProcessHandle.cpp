#include "platform/linux/ProcessHandle.h"

#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <csignal>

namespace blankwell {

std::optional<ProcessHandle> ProcessHandle::open(pid_t process) {
    // glibc 2.36 declares its functions for this in a way that C++ cannot link.
    FileDescriptor descriptor(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)));
    return descriptor ? std::optional(ProcessHandle(std::move(descriptor))) : std::nullopt;
}

bool ProcessHandle::hasEnded() const {
    pollfd end{.fd = descriptor_.get(), .events = POLLIN, .revents = 0};
    return ::poll(&end, 1, 0) > 0;
}

void ProcessHandle::kill() const {
    ::syscall(SYS_pidfd_send_signal, descriptor_.get(), SIGKILL, nullptr, 0);
}

} // namespace blankwell
