#pragma once

#include <chrono>
#include <functional>

namespace blankwell {

/// Work that is to wait for a while.
class Pause {
public:
    virtual ~Pause() = default;

    /// Does `work` on the main thread when `duration` is over. Returns at once. Work that is left
    /// when the object is destroyed never runs.
    virtual void after(std::chrono::milliseconds duration,
                       std::move_only_function<void()> work) = 0;
};

} // namespace blankwell
