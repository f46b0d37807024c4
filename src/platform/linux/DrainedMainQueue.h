#pragma once

#include "platform/MainQueue.h"

#include <deque>
#include <mutex>
#include <utility>

namespace blankwell {

/// The main queue of a program without an event loop: it keeps the work until it is told to run.
/// Work that is left when it is destroyed never runs.
class DrainedMainQueue : public MainQueue {
public:
    void async(std::move_only_function<void()> work) override {
        const std::scoped_lock lock(mutex_);
        work_.push_back(std::move(work));
    }

    /// Does the work in the order it came, and what that adds, until there is none. Belongs to the
    /// main thread.
    void run() {
        while (auto next = take()) {
            next();
        }
    }

private:
    /// The next piece of work; empty where there is none.
    std::move_only_function<void()> take() {
        const std::scoped_lock lock(mutex_);
        if (work_.empty()) {
            return nullptr;
        }
        auto next = std::move(work_.front());
        work_.pop_front();
        return next;
    }

    std::mutex mutex_;
    std::deque<std::move_only_function<void()>> work_;
};

} // namespace blankwell
