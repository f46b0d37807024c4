#include "quickcreate/PanelPlacement.h"

#include <gtest/gtest.h>

#include <array>

namespace blankwell {
namespace {

constexpr Rect visibleFrame{{0, 0}, {1440, 875}};
constexpr Size panel{560, 600};

Point originAt(Point pointer, const Rect& area = visibleFrame) {
    const auto frame = panelFrame(pointer, panel, area);
    EXPECT_EQ(frame.size, panel);
    return frame.origin;
}

TEST(PanelPlacementTest, ThePanelIsCentredOnThePointerAndHangsBelowIt) {
    EXPECT_EQ(originAt({720, 300}), (Point{440, 204}));
}

TEST(PanelPlacementTest, AtTheBottomLeftCornerItKeepsItsMargins) {
    EXPECT_EQ(originAt({0, 0}), (Point{12, 12}));
    EXPECT_EQ(originAt({-1920, 25}, {{-1920, 25}, {1920, 1055}}), (Point{-1908, 37}));
}

TEST(PanelPlacementTest, AtTheTopRightCornerItKeepsItsMargins) {
    EXPECT_EQ(originAt({1440, 900}), (Point{1440 - 560 - 12, 875 - 600 - 12}));
}

TEST(PanelPlacementTest, TheMarginIsReachedExactly) {
    EXPECT_EQ(originAt({12 + 280, 12 + 96}), (Point{12, 12}));
    EXPECT_EQ(originAt({13 + 280, 13 + 96}), (Point{13, 13}));
    EXPECT_EQ(originAt({868 + 280, 263 + 96}), (Point{868, 263}));
    EXPECT_EQ(originAt({869 + 280, 264 + 96}), (Point{868, 263}));
}

TEST(PanelPlacementTest, AScreenThatIsTooSmallKeepsTheTopAndRightMargins) {
    EXPECT_EQ(originAt({0, 0}, {{0, 0}, {400, 300}}), (Point{400 - 560 - 12, 300 - 600 - 12}));
}

TEST(PanelPlacementTest, TheScreenIsTheFirstThatHasThePointer) {
    const std::array screens{
        Screen{{{0, 0}, {1440, 900}}, {{0, 0}, {1440, 875}}},
        Screen{{{1440, 0}, {1000, 900}}, {{1440, 40}, {1000, 860}}},
        Screen{{{1440, 0}, {1000, 900}}, {{1, 1}, {1, 1}}},
    };
    EXPECT_EQ(visibleFrameAt({1439, 899}, screens, std::nullopt), screens[0].visibleFrame);
    EXPECT_EQ(visibleFrameAt({1440, 0}, screens, std::nullopt), screens[1].visibleFrame);
}

TEST(PanelPlacementTest, APointerOnNoScreenMeansTheMainScreenOrAnAssumedOne) {
    const std::array screens{Screen{{{0, 0}, {1440, 900}}, visibleFrame}};
    const Screen main{{{0, 0}, {800, 600}}, {{0, 0}, {800, 570}}};
    EXPECT_EQ(visibleFrameAt({5000, 0}, screens, main), main.visibleFrame);
    EXPECT_EQ(visibleFrameAt({5000, 0}, screens, std::nullopt), (Rect{{0, 0}, {1280, 800}}));
}

} // namespace
} // namespace blankwell
