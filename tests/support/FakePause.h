#pragma once

#include "platform/Pause.h"

#include <map>
#include <utility>
#include <vector>

namespace blankwell {

/// Pauses that are over when the test says so.
class FakePause : public Pause {
public:
    void after(std::chrono::milliseconds duration, std::move_only_function<void()> work) override {
        durations.push_back(duration);
        pending_.emplace(now_ + duration, std::move(work));
    }

    /// Lets the pause that ends first be over. False where there is none.
    bool elapse() {
        if (pending_.empty()) {
            return false;
        }
        auto next = pending_.extract(pending_.begin());
        now_ = next.key();
        next.mapped()();
        return true;
    }

    /// Of all pauses so far, oldest first.
    std::vector<std::chrono::milliseconds> durations;

private:
    std::chrono::milliseconds now_{};
    /// By the moment at which each is due.
    std::multimap<std::chrono::milliseconds, std::move_only_function<void()>> pending_;
};

} // namespace blankwell
