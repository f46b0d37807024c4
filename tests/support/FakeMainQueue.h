#pragma once

#include "platform/MainQueue.h"

#include <deque>
#include <mutex>
#include <utility>

namespace blankwell {

/// A queue that works when the test says so.
class FakeMainQueue : public MainQueue {
public:
    void async(std::move_only_function<void()> work) override {
        const std::scoped_lock lock(mutex_);
        pending.push_back(std::move(work));
    }

    /// Runs all that is pending, and what that adds.
    void run() {
        while (auto work = take()) {
            work();
        }
    }

    /// To be looked at while no other thread adds work.
    std::deque<std::move_only_function<void()>> pending;

private:
    std::move_only_function<void()> take() {
        const std::scoped_lock lock(mutex_);
        if (pending.empty()) {
            return nullptr;
        }
        auto work = std::move(pending.front());
        pending.pop_front();
        return work;
    }

    std::mutex mutex_;
};

} // namespace blankwell
