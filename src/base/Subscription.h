#pragma once

#include <functional>
#include <utility>

namespace blankwell {

/// Something that lasts as long as this value: an observer, a registration. Ended once, by the
/// destructor or before.
class [[nodiscard]] Subscription {
public:
    /// A subscription to nothing.
    Subscription() = default;

    /// `end` is what takes the subscription back.
    explicit Subscription(std::move_only_function<void()> end) : end_(std::move(end)) {}

    ~Subscription() { end(); }

    Subscription(Subscription&& other) noexcept : end_(std::exchange(other.end_, nullptr)) {}

    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            end();
            end_ = std::exchange(other.end_, nullptr);
        }
        return *this;
    }

    /// Ends it now; the second time there is nothing to end.
    void end() {
        if (auto end = std::exchange(end_, nullptr)) {
            end();
        }
    }

private:
    std::move_only_function<void()> end_;
};

} // namespace blankwell
