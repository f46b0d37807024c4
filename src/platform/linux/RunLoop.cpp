#include "platform/linux/RunLoop.h"

#include <utility>

namespace blankwell {

void RunLoop::async(std::move_only_function<void()> work) {
    add(Clock::time_point::min(), std::move(work));
}

Subscription RunLoop::after(std::chrono::milliseconds delay, std::move_only_function<void()> work) {
    const auto turn = add(Clock::now() + delay, std::move(work));
    return Subscription([this, turn] { remove(turn); });
}

void RunLoop::runNext() {
    next()();
}

bool RunLoop::isIdle() {
    const std::scoped_lock lock(mutex_);
    return work_.empty();
}

RunLoop::Turn RunLoop::add(Clock::time_point due, std::move_only_function<void()> work) {
    Turn turn{due, 0};
    {
        const std::scoped_lock lock(mutex_);
        turn.number = added_++;
        work_.emplace(turn, std::move(work));
    }
    changed_.notify_one();
    return turn;
}

void RunLoop::remove(const Turn& turn) {
    const std::scoped_lock lock(mutex_);
    work_.erase(turn);
}

std::move_only_function<void()> RunLoop::next() {
    std::unique_lock lock(mutex_);
    for (;;) {
        if (work_.empty()) {
            changed_.wait(lock);
        } else if (const auto due = work_.begin()->first.due; due > Clock::now()) {
            changed_.wait_until(lock, due);
        } else {
            return std::move(work_.extract(work_.begin()).mapped());
        }
    }
}

} // namespace blankwell
