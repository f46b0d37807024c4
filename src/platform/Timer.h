#pragma once

#include "base/Subscription.h"

#include <chrono>
#include <functional>

namespace blankwell {

/// The main thread's alarm clock.
class Timer {
public:
    virtual ~Timer() = default;

    /// Returns at once, and calls `work` once on the main thread when `delay` has passed, never
    /// earlier, unless the subscription has ended. The work may end or replace its own
    /// subscription. The timer must outlive it.
    virtual Subscription after(std::chrono::milliseconds delay,
                               std::move_only_function<void()> work) = 0;
};

} // namespace blankwell
