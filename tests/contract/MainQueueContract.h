#pragma once

#include "platform/MainQueue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <memory>
#include <numeric>
#include <thread>
#include <utility>
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

TYPED_TEST_P(MainQueueContract, EveryThreadMayAddWorkWhichTheMainThreadDoesOnceInItsOrder) {
    constexpr int piecesOfEach = 500;
    std::array<std::vector<int>, 4> doneOf;
    std::atomic<int> left = std::ssize(doneOf);
    const auto mainThread = std::this_thread::get_id();
    std::vector<std::jthread> threads;
    for (auto& numbers : doneOf) {
        threads.emplace_back([&] {
            for (int number = 0; number < piecesOfEach; ++number) {
                this->queue.async([&numbers, number, mainThread] {
                    EXPECT_EQ(std::this_thread::get_id(), mainThread);
                    numbers.push_back(number);
                });
            }
            --left;
        });
    }
    while (left > 0) {
        this->queue.run();
    }
    this->queue.run();
    std::vector<int> expected(piecesOfEach);
    std::iota(expected.begin(), expected.end(), 0);
    EXPECT_THAT(doneOf, testing::Each(expected));
}

REGISTER_TYPED_TEST_SUITE_P(MainQueueContract, WorkRunsInItsOrderAndOnlyOnce,
                            NothingRunsInsideTheCallThatAddsIt, WorkAddedByWorkRunsAfterWhatIsThere,
                            WorkMayOwnWhatCannotBeCopied,
                            EveryThreadMayAddWorkWhichTheMainThreadDoesOnceInItsOrder);

} // namespace blankwell
