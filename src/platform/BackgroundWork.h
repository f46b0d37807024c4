#pragma once

#include "base/Subscription.h"

#include <functional>
#include <stop_token>

namespace blankwell {

/// Threads for work that blocks.
class BackgroundWork {
public:
    virtual ~BackgroundWork() = default;

    /// Runs `work` on another thread. The end of the subscription asks it to stop, and waits for
    /// nothing; this object waits for all its work before it is gone.
    virtual Subscription run(std::move_only_function<void(std::stop_token)> work) = 0;
};

} // namespace blankwell
