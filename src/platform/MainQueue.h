#pragma once

#include <functional>

namespace blankwell {

/// The main thread's list of work to do next.
class MainQueue {
public:
    virtual ~MainQueue() = default;

    /// Runs `work` on the main thread, after the work that is under way and never inside this call.
    virtual void async(std::move_only_function<void()> work) = 0;
};

} // namespace blankwell
