#pragma once

#include "base/Subscription.h"
#include "platform/MainQueue.h"

#include <memory>
#include <utility>

namespace blankwell {

/// Has `observer` called on the main queue after each change of `observable`, once per change, with
/// what the change was announced with: by then properties hold their new values.
///
/// A call that still waits in `queue` when the subscription ends is dropped. `queue` must outlive
/// the subscription.
template <typename Observable, typename Observer>
Subscription observeLater(Observable& observable, MainQueue& queue, Observer observer) {
    auto wanted = std::make_shared<Observer>(std::move(observer));
    const auto post = [&queue, weak = std::weak_ptr(wanted)](const auto&... values) {
        queue.async([weak, values...] {
            if (const auto stillWanted = weak.lock()) {
                (*stillWanted)(values...);
            }
        });
    };
    auto changes = observable.observeChanges(post);
    return Subscription([changes = std::move(changes), wanted = std::move(wanted)]() mutable {
        changes.end();
        wanted.reset();
    });
}

} // namespace blankwell
