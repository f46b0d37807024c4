#pragma once

#include "platform/MainQueue.h"

#include <deque>
#include <utility>

namespace blankwell {

/// The main queue of a program without an event loop: it keeps the work until it is told to run.
/// Work that is left when it is destroyed never runs.
class DrainedMainQueue : public MainQueue {
public:
    void async(std::move_only_function<void()> work) override { work_.push_back(std::move(work)); }

    /// Does the work in the order it came, and what that adds, until there is none.
    void run() {
        while (!work_.empty()) {
            auto next = std::move(work_.front());
            work_.pop_front();
            next();
        }
    }

private:
    std::deque<std::move_only_function<void()>> work_;
};

} // namespace blankwell
