#pragma once

#include "base/Observers.h"
#include "platform/Appearance.h"

#include <utility>

namespace blankwell {

/// A desktop that looks as the test says.
class FakeAppearance : public Appearance {
public:
    [[nodiscard]] DesktopAppearance current() const override { return appearance_; }

    Subscription observeChanges(std::function<void()> observer) override {
        return observers_.add(std::move(observer));
    }

    void set(const DesktopAppearance& appearance) {
        if (appearance != std::exchange(appearance_, appearance)) {
            observers_.notify();
        }
    }

private:
    DesktopAppearance appearance_;
    Observers<> observers_;
};

} // namespace blankwell
