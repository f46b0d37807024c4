#include "platform/linux/BrokenPipeShield.h"

#include <cerrno>
#include <ctime>

namespace blankwell {
namespace {

sigset_t brokenPipe() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    return signals;
}

bool isPending() {
    sigset_t pending;
    sigpending(&pending);
    return sigismember(&pending, SIGPIPE) == 1;
}

} // namespace

BrokenPipeShield::BrokenPipeShield() : wasPending_(isPending()) {
    const auto signals = brokenPipe();
    pthread_sigmask(SIG_BLOCK, &signals, &previous_);
}

BrokenPipeShield::~BrokenPipeShield() {
    // The signal that came meanwhile is taken, so that it does not strike now.
    if (!wasPending_ && isPending()) {
        const auto signals = brokenPipe();
        const timespec atOnce{};
        while (sigtimedwait(&signals, nullptr, &atOnce) < 0 && errno == EINTR) {
        }
    }
    pthread_sigmask(SIG_SETMASK, &previous_, nullptr);
}

} // namespace blankwell
