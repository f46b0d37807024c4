#pragma once

#include "platform/MainQueue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace blankwell {

/// What every `MainQueue` does. `Queue` also has `run()`, which gives it its turn.
template <typename Queue>
struct MainQueueContract : testing::Test {
    std::move_only_function<void()> note(int number) {
        return [this, number] { done.push_back(number); };
    }

    Queue queue;
    std::vector<int> done;
};

TYPED_TEST_SUITE_P(MainQueueContract);

TYPED_TEST_P(MainQueueContract, WorkRunsInItsOrderAndOnlyOnce) {
    this->queue.async(this->note(1));
    this->queue.async(this->note(2));
    this->queue.run();
    this->queue.run();
    EXPECT_THAT(this->done, testing::ElementsAre(1, 2));
}

TYPED_TEST_P(MainQueueContract, NothingRunsInsideTheCallThatAddsIt) {
    this->queue.async(this->note(1));
    EXPECT_THAT(this->done, testing::IsEmpty());
}

TYPED_TEST_P(MainQueueContract, WorkAddedByWorkRunsAfterWhatIsThere) {
    this->queue.async([this] {
        this->queue.async(this->note(3));
        this->done.push_back(1);
    });
    this->queue.async(this->note(2));
    this->queue.run();
    EXPECT_THAT(this->done, testing::ElementsAre(1, 2, 3));
}

TYPED_TEST_P(MainQueueContract, WorkMayOwnWhatCannotBeCopied) {
    this->queue.async([this, number = std::make_unique<int>(7)] { this->done.push_back(*number); });
    this->queue.run();
    EXPECT_THAT(this->done, testing::ElementsAre(7));
}

REGISTER_TYPED_TEST_SUITE_P(MainQueueContract, WorkRunsInItsOrderAndOnlyOnce,
                            NothingRunsInsideTheCallThatAddsIt, WorkAddedByWorkRunsAfterWhatIsThere,
                            WorkMayOwnWhatCannotBeCopied);

} // namespace blankwell
