#pragma once

#include "platform/MainQueue.h"
#include "platform/Timer.h"

#include <compare>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>

namespace blankwell {

/// The event loop of a program without windows, for work that comes later: from other threads, and
/// after delays. Belongs to the main thread but for `async`. Work that is left when it is destroyed
/// never runs.
class RunLoop : public MainQueue, public Timer {
public:
    void async(std::move_only_function<void()> work) override;
    [[nodiscard]] Subscription after(std::chrono::milliseconds delay,
                                     std::move_only_function<void()> work) override;

    /// Waits for the next piece of work, and does it.
    void runNext();

    /// Whether there is no work, neither now nor after a delay.
    [[nodiscard]] bool isIdle();

private:
    using Clock = std::chrono::steady_clock;

    /// When a piece of work is due; of one moment they come in their order.
    struct Turn {
        Clock::time_point due;
        std::uint64_t number;

        friend auto operator<=>(const Turn&, const Turn&) = default;
    };

    Turn add(Clock::time_point due, std::move_only_function<void()> work);
    void remove(const Turn& turn);
    [[nodiscard]] std::move_only_function<void()> next();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::uint64_t added_ = 0;
    std::map<Turn, std::move_only_function<void()>> work_;
};

} // namespace blankwell
