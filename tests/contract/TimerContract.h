#pragma once

#include "platform/Timer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace blankwell {

/// What every `Timer` does. `World` has `timer()`, the port under test, and `letTimePass()`, which
/// lets every alarm ring that is asked for.
template <typename World>
struct TimerContract : testing::Test {
    /// Has `number` noted after `delay`.
    Subscription note(int number, std::chrono::milliseconds delay) {
        return world.timer().after(delay, [this, number] { done.push_back(number); });
    }

    World world;
    std::vector<int> done;
    Subscription subscription;
};

TYPED_TEST_SUITE_P(TimerContract);

TYPED_TEST_P(TimerContract, WorkRunsOnce) {
    this->subscription = this->note(1, std::chrono::milliseconds(1));
    this->world.letTimePass();
    this->world.letTimePass();
    EXPECT_THAT(this->done, testing::ElementsAre(1));
}

TYPED_TEST_P(TimerContract, NothingRunsInsideTheCall) {
    this->subscription = this->note(1, std::chrono::milliseconds(0));
    EXPECT_THAT(this->done, testing::IsEmpty());
    this->world.letTimePass();
    EXPECT_THAT(this->done, testing::ElementsAre(1));
}

TYPED_TEST_P(TimerContract, TheShorterDelayIsOverFirst) {
    const auto longer = this->note(2, std::chrono::milliseconds(60));
    const auto shorter = this->note(1, std::chrono::milliseconds(5));
    this->world.letTimePass();
    EXPECT_THAT(this->done, testing::ElementsAre(1, 2));
}

TYPED_TEST_P(TimerContract, NothingRunsAfterTheEnd) {
    const auto kept = this->note(1, std::chrono::milliseconds(1));
    auto ended = this->note(2, std::chrono::milliseconds(1));
    ended.end();
    this->world.letTimePass();
    EXPECT_THAT(this->done, testing::ElementsAre(1));
}

TYPED_TEST_P(TimerContract, WorkMayOwnWhatCannotBeCopied) {
    this->subscription = this->world.timer().after(
        std::chrono::milliseconds(1),
        [this, number = std::make_unique<int>(7)] { this->done.push_back(*number); });
    this->world.letTimePass();
    EXPECT_THAT(this->done, testing::ElementsAre(7));
}

TYPED_TEST_P(TimerContract, WorkMayEndItsOwnSubscription) {
    this->subscription = this->world.timer().after(
        std::chrono::milliseconds(1), [this, number = std::make_unique<int>(7)] {
            this->subscription.end();
            this->done.push_back(*number); // what it owns is still there
        });
    this->world.letTimePass();
    EXPECT_THAT(this->done, testing::ElementsAre(7));
}

TYPED_TEST_P(TimerContract, WorkMayReplaceItsOwnSubscription) {
    this->subscription = this->world.timer().after(std::chrono::milliseconds(1), [this] {
        this->done.push_back(1);
        this->subscription = this->note(2, std::chrono::milliseconds(1));
    });
    this->world.letTimePass();
    EXPECT_THAT(this->done, testing::ElementsAre(1, 2));
}

REGISTER_TYPED_TEST_SUITE_P(TimerContract, WorkRunsOnce, NothingRunsInsideTheCall,
                            TheShorterDelayIsOverFirst, NothingRunsAfterTheEnd,
                            WorkMayOwnWhatCannotBeCopied, WorkMayEndItsOwnSubscription,
                            WorkMayReplaceItsOwnSubscription);

} // namespace blankwell
