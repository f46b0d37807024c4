#include "platform/linux/TerminationSignals.h"

#include "platform/linux/SystemErrors.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>

namespace blankwell {
namespace {

constexpr std::array endingSignals{SIGTERM, SIGINT, SIGHUP};

/// What the handler writes to: a handler can be handed nothing.
volatile std::sig_atomic_t writableDescriptor = -1; // NOLINT(*-non-const-global-variables)

void noteSignal(int /*signal*/) {
    const int error = errno;
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(writableDescriptor, &one, sizeof one);
    errno = error;
}

} // namespace

std::expected<TerminationSignals, SystemError> TerminationSignals::take() {
    FileDescriptor event(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (!event) {
        return std::unexpected(posixError(errno, "Could not watch for signals"));
    }
    writableDescriptor = event.get();
    struct sigaction action{};
    action.sa_handler = noteSignal;
    // The handler stands for one signal: the next one acts as usual.
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    for (const int signal : endingSignals) {
        ::sigaction(signal, &action, nullptr);
    }
    return TerminationSignals(std::move(event));
}

} // namespace blankwell
