#pragma once

#include "base/Observers.h"

#include <cstddef>
#include <functional>
#include <utility>

namespace blankwell {

/// An object's announcement that one of its published properties is about to change. Observers see
/// the object as it was, and read it again later.
class ObjectWillChange {
public:
    /// Calls `observer` before each change from now on.
    Subscription observeChanges(std::function<void()> observer) {
        return observers_.add(std::move(observer));
    }

    void announce() { observers_.notify(); }

    [[nodiscard]] std::size_t observerCount() const { return observers_.count(); }

private:
    Observers<> observers_;
};

} // namespace blankwell
