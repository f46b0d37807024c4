#pragma once

#include "base/ObjectWillChange.h"
#include "base/Observers.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <utility>

namespace blankwell {

/// A value whose every assignment is announced, with the new value, before it is held.
///
/// Assignments take effect one after the other: one that is made while another is announced is
/// announced and held when that one is. So all observers hear of the same values in the same order,
/// and the last value heard is the one that is held in the end. Assigning an equal value is an
/// assignment like any other. Belongs to one thread, and must not be destroyed by an observer.
template <typename Value>
class Published {
public:
    using Observer = std::function<void(const Value&)>;

    /// Called with the value once it is held.
    using Afterwards = std::function<void(const Value&)>;

    /// `owner` is the object whose property this is and hears of each assignment first; it must
    /// outlive this value.
    Published(ObjectWillChange& owner, Value initial) : owner_(owner), value_(std::move(initial)) {}

    [[nodiscard]] const Value& get() const { return value_; }

    /// Announces `value`, then holds it, then calls `afterwards`.
    void set(Value value, Afterwards afterwards = [](const Value&) {}) {
        pending_.push_back({std::move(value), std::move(afterwards)});
        if (pending_.size() > 1) {
            return;
        }
        // An assignment leaves the list when it is through, so that the list tells whether one is
        // under way.
        for (; !pending_.empty(); pending_.pop_front()) {
            auto& assignment = pending_.front();
            owner_.announce();
            observers_.notify(assignment.value);
            value_ = std::move(assignment.value);
            assignment.afterwards(value_);
        }
    }

    /// Calls `observer` at once with the value held now, and from then on with each value that is
    /// announced.
    Subscription observe(Observer observer) {
        observer(value_);
        return observeChanges(std::move(observer));
    }

    /// Calls `observer` with each value that is announced from now on.
    Subscription observeChanges(Observer observer) { return observers_.add(std::move(observer)); }

    [[nodiscard]] std::size_t observerCount() const { return observers_.count(); }

private:
    struct Assignment {
        Value value;
        Afterwards afterwards;
    };

    ObjectWillChange& owner_;
    Value value_;
    Observers<Value> observers_;
    std::deque<Assignment> pending_;
};

} // namespace blankwell
