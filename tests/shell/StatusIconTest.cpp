#include "shell/StatusIcon.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

constexpr double tolerance = 1e-9;

void expectNear(const Rect& rect, const Rect& expected) {
    EXPECT_NEAR(rect.origin.x, expected.origin.x, tolerance);
    EXPECT_NEAR(rect.origin.y, expected.origin.y, tolerance);
    EXPECT_NEAR(rect.size.width, expected.size.width, tolerance);
    EXPECT_NEAR(rect.size.height, expected.size.height, tolerance);
}

void expectNear(Point point, Point expected) {
    EXPECT_NEAR(point.x, expected.x, tolerance);
    EXPECT_NEAR(point.y, expected.y, tolerance);
}

void expectLine(const DrawingStep& step, Point from, Point to, Points width) {
    const auto& line = std::get<StrokeLine>(step);
    EXPECT_EQ(line.paint.mode, Paint::Mode::clear);
    EXPECT_NEAR(line.lineWidth, width, tolerance);
    expectNear(line.from, from);
    expectNear(line.to, to);
}

TEST(StatusIconTest, IsATemplateOfItsSize) {
    const auto icon = statusIcon();
    EXPECT_EQ(icon.size, (Size{22, 18}));
    EXPECT_TRUE(icon.isTemplate);
    EXPECT_EQ(icon.drawing({{0, 0}, {22, 18}}).size(), 8U);
}

TEST(StatusIconTest, DrawsTwoSheetsTheFrontOneOverThePaleOne) {
    const auto steps = statusIconDrawing({{0, 0}, {22, 18}});
    const auto& back = std::get<FillRoundedRect>(steps.at(0));
    expectNear(back.rect, {{4.9, 3.4}, {12.6, 13.4}});
    EXPECT_NEAR(back.cornerRadius, 2.7, tolerance);
    EXPECT_EQ(back.paint, (Paint{Paint::Mode::black, 0.5}));
    const auto& front = std::get<FillRoundedRect>(steps.at(1));
    expectNear(front.rect, {{7.0, 1.0}, {12.8, 15.9}});
    EXPECT_NEAR(front.cornerRadius, 2.8, tolerance);
    EXPECT_EQ(front.paint, (Paint{Paint::Mode::black, 1}));
}

TEST(StatusIconTest, CutsTheFoldedCornerAndTwoLinesOutOfTheFrontSheet) {
    const auto steps = statusIconDrawing({{0, 0}, {22, 18}});
    const auto& corner = std::get<FillTriangle>(steps.at(2));
    EXPECT_EQ(corner.paint.mode, Paint::Mode::clear);
    expectNear(corner.corners[0], {19.8 - 5.1, 16.9});
    expectNear(corner.corners[1], {19.8, 16.9 - 5.1});
    expectNear(corner.corners[2], {19.8, 16.9});
    expectLine(steps.at(3), {10.1, 8.95 + 0.9}, {15.4, 8.95 + 0.9}, 1.55);
    expectLine(steps.at(4), {10.1, 8.95 - 2}, {15.4, 8.95 - 2}, 1.55);
}

TEST(StatusIconTest, CutsAPlusSignOutOfTheBadge) {
    const auto steps = statusIconDrawing({{0, 0}, {22, 18}});
    const auto& badge = std::get<FillEllipse>(steps.at(5));
    EXPECT_EQ(badge.paint, (Paint{Paint::Mode::black, 1}));
    expectNear(badge.bounds, {{1.4, 0.8}, {10.5, 10.5}});
    expectLine(steps.at(6), {6.65 - 2.7, 6.05}, {6.65 + 2.7, 6.05}, 2.45);
    expectLine(steps.at(7), {6.65, 6.05 - 2.7}, {6.65, 6.05 + 2.7}, 2.45);
}

TEST(StatusIconTest, FillsTheMiddleOfADestinationWithoutStretching) {
    // Twice the size fits in both; what is left of the width is shared by the sides.
    const auto steps = statusIconDrawing({{100, 200}, {64, 36}});
    expectNear(std::get<FillEllipse>(steps.at(5)).bounds, {{110 + 2.8, 200 + 1.6}, {21, 21}});
    EXPECT_NEAR(std::get<FillRoundedRect>(steps.at(1)).cornerRadius, 5.6, tolerance);
    expectLine(steps.at(7), {110 + 13.3, 200 + 6.7}, {110 + 13.3, 200 + 17.5}, 4.9);

    const auto tall = statusIconDrawing({{0, 0}, {11, 90}});
    expectNear(std::get<FillRoundedRect>(tall.at(0)).rect, {{2.45, 45 - 4.5 + 1.7}, {6.3, 6.7}});
}

} // namespace
} // namespace blankwell
