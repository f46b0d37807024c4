#pragma once

#include "platform/Pause.h"

#include <deque>
#include <utility>
#include <vector>

namespace blankwell {

/// Pauses that are over when the test says so.
class FakePause : public Pause {
public:
    void after(std::chrono::milliseconds duration, std::move_only_function<void()> work) override {
        durations.push_back(duration);
        pending_.push_back(std::move(work));
    }

    /// Lets the oldest pause be over. False where there is none.
    bool elapse() {
        if (pending_.empty()) {
            return false;
        }
        auto work = std::move(pending_.front());
        pending_.pop_front();
        work();
        return true;
    }

    /// Of all pauses so far, oldest first.
    std::vector<std::chrono::milliseconds> durations;

private:
    std::deque<std::move_only_function<void()>> pending_;
};

} // namespace blankwell
