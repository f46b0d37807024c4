#pragma once

#include "platform/MainQueue.h"

#include <deque>
#include <utility>

namespace blankwell {

/// A queue that works when the test says so.
class FakeMainQueue : public MainQueue {
public:
    void async(std::move_only_function<void()> work) override {
        pending.push_back(std::move(work));
    }

    /// Runs all that is pending, and what that adds.
    void run() {
        while (!pending.empty()) {
            auto work = std::move(pending.front());
            pending.pop_front();
            work();
        }
    }

    std::deque<std::move_only_function<void()>> pending;
};

} // namespace blankwell
