#pragma once

#include "base/Subscription.h"

#include <chrono>
#include <functional>

namespace blankwell {

/// The main thread's alarm clock.
class Timer {
public:
    virtual ~Timer() = default;

    /// Calls `work` on the main thread once `delay` has passed, unless the subscription has ended.
    virtual Subscription after(std::chrono::seconds delay,
                               std::move_only_function<void()> work) = 0;
};

} // namespace blankwell
