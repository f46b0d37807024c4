#pragma once

#include <functional>

namespace blankwell {

/// The main thread's list of work to do next.
class MainQueue {
public:
    virtual ~MainQueue() = default;

    /// Runs `work` on the main thread, after the work that is under way and never inside this call.
    /// May be called from any thread; the work of one thread runs in the order that it came in.
    virtual void async(std::move_only_function<void()> work) = 0;
};

} // namespace blankwell
