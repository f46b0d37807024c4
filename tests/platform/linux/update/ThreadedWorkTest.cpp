#include "platform/linux/update/ThreadedWork.h"

#include <gtest/gtest.h>

#include <future>

namespace blankwell {
namespace {

TEST(ThreadedWorkTest, WorksOnAnotherThread) {
    ThreadedWork work;
    std::promise<std::thread::id> thread;
    const auto subscription =
        work.run([&](const std::stop_token&) { thread.set_value(std::this_thread::get_id()); });
    EXPECT_NE(thread.get_future().get(), std::this_thread::get_id());
}

TEST(ThreadedWorkTest, TheEndOfTheSubscriptionAsksItToStop) {
    ThreadedWork work;
    std::promise<void> isStopped;
    auto subscription = work.run([&](const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            std::this_thread::yield();
        }
        isStopped.set_value();
    });
    subscription.end();
    isStopped.get_future().wait();
}

TEST(ThreadedWorkTest, ItsEndStopsTheWorkAndWaitsForIt) {
    std::atomic<bool> isOver = false;
    Subscription subscription;
    {
        ThreadedWork work;
        subscription = work.run([&](const std::stop_token& stop) {
            while (!stop.stop_requested()) {
                std::this_thread::yield();
            }
            isOver = true;
        });
    }
    EXPECT_TRUE(isOver);
}

TEST(ThreadedWorkTest, WhatTheWorkHoldsGoesWhenItIsDone) {
    ThreadedWork work;
    auto held = std::make_shared<int>();
    const std::weak_ptr<int> weak = held;
    const auto subscription = work.run([held = std::move(held)](const std::stop_token&) {});
    while (!weak.expired()) {
        std::this_thread::yield();
    }
}

} // namespace
} // namespace blankwell
