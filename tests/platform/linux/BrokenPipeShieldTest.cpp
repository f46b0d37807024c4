#include "platform/linux/BrokenPipeShield.h"

#include "platform/linux/FileDescriptor.h"
#include "support/ChildProcess.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>

#include <unistd.h>

namespace blankwell {
namespace {

/// What writing to a pipe that nobody reads comes to.
int errorOfWriting() {
    std::array<int, 2> ends{};
    EXPECT_EQ(::pipe(ends.data()), 0);
    const FileDescriptor writing(ends[1]);
    FileDescriptor(ends[0]).reset();
    return ::write(writing.get(), "x", 1) < 0 ? errno : 0;
}

bool isBlocked() {
    sigset_t blocked;
    pthread_sigmask(SIG_SETMASK, nullptr, &blocked);
    return sigismember(&blocked, SIGPIPE) == 1;
}

TEST(BrokenPipeShield, WritingWhereNobodyReadsIsAnErrorOnly) {
    {
        const BrokenPipeShield shield;
        EXPECT_EQ(errorOfWriting(), EPIPE);
    }
    EXPECT_FALSE(isBlocked());
}

TEST(BrokenPipeShield, AfterwardsTheSignalIsWhatItWas) {
    EXPECT_EXIT(
        {
            {
                const BrokenPipeShield shield;
            }
            errorOfWriting();
            std::exit(0);
        },
        testing::KilledBySignal(SIGPIPE), "");
}

TEST(BrokenPipeShield, ShieldsInsideOneAnotherEndOneByOne) {
    const BrokenPipeShield outer;
    {
        const BrokenPipeShield inner;
        EXPECT_EQ(errorOfWriting(), EPIPE);
    }
    EXPECT_EQ(errorOfWriting(), EPIPE);
    EXPECT_TRUE(isBlocked());
}

TEST(BrokenPipeShield, ASignalThatWaitedBeforeStillWaits) {
    inChildProcess([] {
        sigset_t signals;
        sigemptyset(&signals);
        sigaddset(&signals, SIGPIPE);
        pthread_sigmask(SIG_BLOCK, &signals, nullptr);
        ::raise(SIGPIPE);
        {
            const BrokenPipeShield shield;
        }
        sigpending(&signals);
        EXPECT_EQ(sigismember(&signals, SIGPIPE), 1);
    });
}

} // namespace
} // namespace blankwell
