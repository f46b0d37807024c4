#include "platform/linux/TerminationSignals.h"

#include "support/ChildProcess.h"

#include <gtest/gtest.h>

#include <poll.h>

#include <csignal>

namespace blankwell {
namespace {

bool isReadable(int descriptor) {
    pollfd watched{.fd = descriptor, .events = POLLIN, .revents = 0};
    return ::poll(&watched, 1, 0) == 1;
}

struct TerminationSignalsTest : testing::TestWithParam<int> {};

TEST_P(TerminationSignalsTest, TheFirstOneMakesTheDescriptorReadableAndEndsNothing) {
    inChildProcess([] {
        const auto termination = TerminationSignals::take();
        ASSERT_TRUE(termination);
        EXPECT_FALSE(isReadable(termination->descriptor()));
        ::raise(GetParam());
        EXPECT_TRUE(isReadable(termination->descriptor()));
    });
}

TEST_P(TerminationSignalsTest, TheSecondOneEndsTheProcess) {
    const auto takeBoth = [] {
        const auto termination = TerminationSignals::take();
        ::raise(GetParam());
        ::raise(GetParam());
    };
    EXPECT_EXIT(takeBoth(), testing::KilledBySignal(GetParam()), "");
}

INSTANTIATE_TEST_SUITE_P(All, TerminationSignalsTest, testing::Values(SIGTERM, SIGINT, SIGHUP));

} // namespace
} // namespace blankwell
