#pragma once

#include "platform/Timer.h"

#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace blankwell {

/// An alarm clock that rings when the test says so.
class FakeTimer : public Timer {
public:
    Subscription after(std::chrono::milliseconds delay,
                       std::move_only_function<void()> work) override {
        const Alarm alarm{now_ + delay, delays.size()};
        delays.push_back(delay);
        pending_.emplace(alarm, std::move(work));
        return Subscription([this, alarm] { pending_.erase(alarm); });
    }

    /// Lets the alarm that is due first ring. False where there is none.
    bool ring() {
        if (pending_.empty()) {
            return false;
        }
        auto next = pending_.extract(pending_.begin()); // it may end its own subscription
        now_ = next.key().first;
        next.mapped()();
        return true;
    }

    /// How long it takes until an alarm rings; nothing where there is none.
    [[nodiscard]] std::optional<std::chrono::milliseconds> untilNext() const {
        return pending_.empty() ? std::nullopt
                                : std::optional(pending_.begin()->first.first - now_);
    }

    /// All that were asked for so far, oldest first.
    std::vector<std::chrono::milliseconds> delays;

private:
    /// When it is due, and its place among all.
    using Alarm = std::pair<std::chrono::milliseconds, std::size_t>;

    std::chrono::milliseconds now_{};
    std::map<Alarm, std::move_only_function<void()>> pending_;
};

} // namespace blankwell
