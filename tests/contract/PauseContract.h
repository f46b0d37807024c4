#pragma once

#include "platform/Pause.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace blankwell {

/// What every `Pause` does. `World` has `pause()`, the port under test, `end()`, which destroys it,
/// and `letTimePass()`, which lets every pause be over that work asks for.
template <typename World>
struct PauseContract : testing::Test {
    std::move_only_function<void()> note(int number) {
        return [this, number] { done.push_back(number); };
    }

    World world;
    std::vector<int> done;
};

TYPED_TEST_SUITE_P(PauseContract);

TYPED_TEST_P(PauseContract, WorkRunsOnce) {
    this->world.pause().after(std::chrono::milliseconds(1), this->note(1));
    this->world.letTimePass();
    this->world.letTimePass();
    EXPECT_THAT(this->done, testing::ElementsAre(1));
}

TYPED_TEST_P(PauseContract, NothingRunsInsideTheCall) {
    this->world.pause().after(std::chrono::milliseconds(0), this->note(1));
    EXPECT_THAT(this->done, testing::IsEmpty());
    this->world.letTimePass();
    EXPECT_THAT(this->done, testing::ElementsAre(1));
}

TYPED_TEST_P(PauseContract, TheShorterPauseIsOverFirst) {
    this->world.pause().after(std::chrono::milliseconds(60), this->note(2));
    this->world.pause().after(std::chrono::milliseconds(5), this->note(1));
    this->world.letTimePass();
    EXPECT_THAT(this->done, testing::ElementsAre(1, 2));
}

TYPED_TEST_P(PauseContract, WorkMayPauseAgain) {
    this->world.pause().after(std::chrono::milliseconds(1), [this] {
        this->done.push_back(1);
        this->world.pause().after(std::chrono::milliseconds(1), this->note(2));
    });
    this->world.letTimePass();
    EXPECT_THAT(this->done, testing::ElementsAre(1, 2));
}

TYPED_TEST_P(PauseContract, WorkMayOwnWhatCannotBeCopied) {
    this->world.pause().after(
        std::chrono::milliseconds(1),
        [this, number = std::make_unique<int>(7)] { this->done.push_back(*number); });
    this->world.letTimePass();
    EXPECT_THAT(this->done, testing::ElementsAre(7));
}

TYPED_TEST_P(PauseContract, WorkThatIsLeftAtTheEndNeverRuns) {
    this->world.pause().after(std::chrono::milliseconds(1), this->note(1));
    this->world.end();
    this->world.letTimePass();
    EXPECT_THAT(this->done, testing::IsEmpty());
}

REGISTER_TYPED_TEST_SUITE_P(PauseContract, WorkRunsOnce, NothingRunsInsideTheCall,
                            TheShorterPauseIsOverFirst, WorkMayPauseAgain,
                            WorkMayOwnWhatCannotBeCopied, WorkThatIsLeftAtTheEndNeverRuns);

} // namespace blankwell
