#pragma once

#include "platform/Appearance.h"

#include <gtest/gtest.h>

namespace blankwell {

/// What every `Appearance` does. `Desktop` also has `set(DesktopAppearance)`, which changes how the
/// desktop looks and returns when the change has arrived, and `appearance()`.
template <typename Desktop>
struct AppearanceContract : testing::Test {
    Desktop desktop;
};

TYPED_TEST_SUITE_P(AppearanceContract);

TYPED_TEST_P(AppearanceContract, EachPartOfAChangeIsTold) {
    const AccentColor orange{.red = 1, .green = 0.5, .blue = 0};
    for (const auto& appearance : {
             DesktopAppearance{.scheme = ColorScheme::dark, .accent = std::nullopt},
             DesktopAppearance{.scheme = ColorScheme::dark, .accent = orange},
             DesktopAppearance{
                 .scheme = ColorScheme::dark, .accent = orange, .reducesMotion = true},
             DesktopAppearance{},
         }) {
        this->desktop.set(appearance);
        EXPECT_EQ(this->desktop.appearance().current(), appearance);
    }
}

TYPED_TEST_P(AppearanceContract, AnObserverIsCalledOnceForEachChangeAndSeesIt) {
    std::vector<ColorScheme> seen;
    const auto subscription = this->desktop.appearance().observeChanges(
        [&] { seen.push_back(this->desktop.appearance().current().scheme); });
    EXPECT_TRUE(seen.empty());
    this->desktop.set({.scheme = ColorScheme::dark, .accent = std::nullopt});
    this->desktop.set({.scheme = ColorScheme::light, .accent = std::nullopt});
    EXPECT_EQ(seen, (std::vector{ColorScheme::dark, ColorScheme::light}));
}

TYPED_TEST_P(AppearanceContract, WhatIsAsBeforeIsNoChange) {
    this->desktop.set({.scheme = ColorScheme::dark, .accent = std::nullopt});
    int changes = 0;
    const auto subscription = this->desktop.appearance().observeChanges([&] { ++changes; });
    this->desktop.set({.scheme = ColorScheme::dark, .accent = std::nullopt});
    EXPECT_EQ(changes, 0);
}

TYPED_TEST_P(AppearanceContract, AfterItsEndASubscriptionHearsNothing) {
    int changes = 0;
    auto subscription = this->desktop.appearance().observeChanges([&] { ++changes; });
    subscription.end();
    this->desktop.set({.scheme = ColorScheme::dark, .accent = std::nullopt});
    EXPECT_EQ(changes, 0);
}

REGISTER_TYPED_TEST_SUITE_P(AppearanceContract, EachPartOfAChangeIsTold,
                            AnObserverIsCalledOnceForEachChangeAndSeesIt, WhatIsAsBeforeIsNoChange,
                            AfterItsEndASubscriptionHearsNothing);

} // namespace blankwell
