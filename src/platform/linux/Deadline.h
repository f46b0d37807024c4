#pragma once

#include <algorithm>
#include <chrono>

namespace blankwell {

/// The moment after which a request waits no longer, shared by all the steps that it takes.
class Deadline {
public:
    explicit Deadline(std::chrono::milliseconds fromNow) : end_(Clock::now() + fromNow) {}

    /// What is left to wait; zero once the moment has passed.
    [[nodiscard]] std::chrono::microseconds remaining() const {
        const auto left = std::chrono::ceil<std::chrono::microseconds>(end_ - Clock::now());
        return std::max(left, std::chrono::microseconds::zero());
    }

    [[nodiscard]] bool hasPassed() const { return Clock::now() >= end_; }

private:
    using Clock = std::chrono::steady_clock;

    Clock::time_point end_;
};

} // namespace blankwell
