#include "views/MainWindowLayout.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

using namespace mainwindow;

constexpr Points titleBar = 28;

/// A window 770 wide with a title bar, at the left of the screen's middle.
Rect window(Points contentHeight, Points top) {
    return {{100, top - contentHeight - titleBar}, {770, contentHeight + titleBar}};
}

Rect visible(Points height, Points bottom = 0) {
    return {{0, bottom}, {1440, height}};
}

TEST(MainWindowLayoutTest, HasTheseSizes) {
    EXPECT_EQ(contentMinimumSize, (Size{720, 520}));
    EXPECT_EQ(sceneDefaultSize, (Size{770, 1155}));
    EXPECT_EQ(screenMargin, 24);
    EXPECT_EQ(scrollAreaMinimumHeight, 280);
    EXPECT_EQ(scrollAreaIdealHeight, 360);
}

TEST(MainWindowLayoutTest, TheHeightFollowsTheScreenBetweenItsBounds) {
    EXPECT_EQ(activationContentHeight(500), 520);
    EXPECT_EQ(activationContentHeight(544), 520);
    EXPECT_EQ(activationContentHeight(900), 876);
    EXPECT_EQ(activationContentHeight(1179), 1155);
    EXPECT_EQ(activationContentHeight(2000), 1155);
}

TEST(MainWindowLayoutTest, AWindowThatIsTooLowGrowsDownFromItsTop) {
    EXPECT_EQ(activatedWindowFrame(window(520, 1900), 520, visible(2000)), window(1155, 1900));
}

TEST(MainWindowLayoutTest, AWindowAboveTheFreePartIsBroughtDownToIt) {
    EXPECT_EQ(activatedWindowFrame(window(520, 2100), 520, visible(2000)), window(1155, 2000));
}

TEST(MainWindowLayoutTest, AWindowNeverGrowsBelowTheFreePart) {
    // 1155 and the title bar, from 900 down, would end below 100.
    EXPECT_EQ(activatedWindowFrame(window(520, 900), 520, visible(1900, 100)),
              (Rect{{100, 100}, {770, 1155 + titleBar}}));
}

TEST(MainWindowLayoutTest, AWindowThatIsHighEnoughStays) {
    EXPECT_EQ(activatedWindowFrame(window(876, 900), 876, visible(900)), std::nullopt);
    EXPECT_EQ(activatedWindowFrame(window(1000, 900), 1000, visible(900)), std::nullopt);
    EXPECT_EQ(activatedWindowFrame(window(875, 900), 875, visible(900)), std::nullopt);
    EXPECT_NE(activatedWindowFrame(window(874, 900), 874, visible(900)), std::nullopt);
}

TEST(ActivationSizingTest, HappensOnce) {
    ActivationSizing sizing;
    EXPECT_FALSE(sizing.didApplyActivatedWindowSize());
    EXPECT_EQ(sizing.windowBecameActive(window(520, 1900), 520, visible(2000)), window(1155, 1900));
    EXPECT_TRUE(sizing.didApplyActivatedWindowSize());
    EXPECT_EQ(sizing.windowBecameActive(window(520, 1900), 520, visible(2000)), std::nullopt);
}

TEST(ActivationSizingTest, AWindowThatWasHighEnoughIsDoneToo) {
    ActivationSizing sizing;
    EXPECT_EQ(sizing.windowBecameActive(window(876, 900), 876, visible(900)), std::nullopt);
    EXPECT_TRUE(sizing.didApplyActivatedWindowSize());
}

TEST(ActivationSizingTest, WithoutAScreenTheNextActivationCounts) {
    ActivationSizing sizing;
    EXPECT_EQ(sizing.windowBecameActive(window(520, 1900), 520, std::nullopt), std::nullopt);
    EXPECT_FALSE(sizing.didApplyActivatedWindowSize());
    EXPECT_EQ(sizing.windowBecameActive(window(520, 1900), 520, visible(2000)), window(1155, 1900));
}

} // namespace
} // namespace blankwell
