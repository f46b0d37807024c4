#pragma once

#include "platform/Screens.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace blankwell {

/// What every `Screens` does that knows the pointer and has a display. `World` has `screens()` and
/// `movePointer(to)`.
template <typename World>
struct ScreensContract : testing::Test {
    const Screens& screens() { return world.screens(); }

    World world;
};

TYPED_TEST_SUITE_P(ScreensContract);

TYPED_TEST_P(ScreensContract, WhatIsFreeOfADisplayIsAPartOfIt) {
    const auto all = this->screens().screens();
    ASSERT_THAT(all, testing::Not(testing::IsEmpty()));
    for (const auto& screen : all) {
        EXPECT_GT(screen.visibleFrame.size.width, 0);
        EXPECT_GT(screen.visibleFrame.size.height, 0);
        EXPECT_GE(screen.visibleFrame.minX(), screen.frame.minX());
        EXPECT_GE(screen.visibleFrame.minY(), screen.frame.minY());
        EXPECT_LE(screen.visibleFrame.maxX(), screen.frame.maxX());
        EXPECT_LE(screen.visibleFrame.maxY(), screen.frame.maxY());
    }
}

TYPED_TEST_P(ScreensContract, TheMainScreenIsOneOfThem) {
    const auto main = this->screens().mainScreen();
    ASSERT_TRUE(main);
    EXPECT_THAT(this->screens().screens(), testing::Contains(*main));
}

TYPED_TEST_P(ScreensContract, ThePointerIsWhereItWasMovedWithYGrowingUpwards) {
    for (const auto& screen : this->screens().screens()) {
        const Point middle{screen.frame.midX(), screen.frame.midY()};
        const Point higher{middle.x + 5, middle.y + 10};
        for (const auto place : {middle, higher}) {
            this->world.movePointer(place);
            const auto pointer = this->screens().pointerLocation();
            ASSERT_TRUE(pointer);
            EXPECT_NEAR(pointer->x, place.x, 0.5);
            EXPECT_NEAR(pointer->y, place.y, 0.5);
        }
    }
}

TYPED_TEST_P(ScreensContract, ThePointerInACornerIsInsideThatScreen) {
    for (const auto& screen : this->screens().screens()) {
        const auto& frame = screen.frame;
        for (const auto corner :
             {Point{frame.minX(), frame.minY()}, Point{frame.maxX() - 1, frame.minY()},
              Point{frame.minX(), frame.maxY() - 1}, Point{frame.maxX() - 1, frame.maxY() - 1}}) {
            this->world.movePointer(corner);
            EXPECT_TRUE(frame.contains(this->screens().pointerLocation().value()));
        }
    }
}

REGISTER_TYPED_TEST_SUITE_P(ScreensContract, WhatIsFreeOfADisplayIsAPartOfIt,
                            TheMainScreenIsOneOfThem,
                            ThePointerIsWhereItWasMovedWithYGrowingUpwards,
                            ThePointerInACornerIsInsideThatScreen);

} // namespace blankwell
