#include "widgets/SegmentedControl.h"

#include "widgets/Segment.h"
#include "widgets/WidgetTest.h"

#include <array>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct SegmentedControlTest : WidgetTest {
    SegmentedControlTest() {
        QObject::connect(&control, &SegmentedControl::selectedByUser,
                         [this](int index) { told.push_back(index); });
    }

    Segment& segment(int index) { return *control.findChildren<Segment*>()[index]; }

    QColor colorAtEdgeOf(int index) {
        segment(index).setAttribute(Qt::WA_UnderMouse, false); // wherever the pointer is
        const auto place = segment(index).geometry();
        return imageOf(control).pixelColor(place.center().x(), place.top() + 4);
    }

    static inline const std::array<SegmentedControl::Title, 3> titles{{
        {.text = "Desktop", .symbol = "desktopcomputer"},
        {.text = "Finder Folder", .symbol = "folder"},
        {.text = "Elsewhere", .symbol = ""},
    }};
    SegmentedControl control{theme, "Destination", titles};
    std::vector<int> told;
};

TEST_F(SegmentedControlTest, AClickSelectsAndIsToldOnce) {
    show(control);
    EXPECT_EQ(control.selected(), 0);
    QTest::mouseClick(&segment(1), Qt::LeftButton, {}, {2, 2});
    EXPECT_EQ(control.selected(), 1);
    QTest::mouseClick(&segment(1), Qt::LeftButton);
    EXPECT_THAT(told, ElementsAre(1));
}

TEST_F(SegmentedControlTest, WhatTheProgramSelectsIsNotTold) {
    control.select(2);
    EXPECT_EQ(control.selected(), 2);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(SegmentedControlTest, ArrowsSelectTheNeighbour) {
    show(control);
    segment(0).setFocus();
    QTest::keyClick(&segment(0), Qt::Key_Right);
    EXPECT_TRUE(segment(1).hasFocus());
    EXPECT_EQ(control.selected(), 1);
    QTest::keyClick(&segment(1), Qt::Key_Left);
    EXPECT_EQ(control.selected(), 0);
    EXPECT_THAT(told, ElementsAre(1, 0));
}

TEST_F(SegmentedControlTest, FromRightToLeftTheArrowsAndTheOrderAreMirrored) {
    control.setLayoutDirection(Qt::RightToLeft);
    show(control);
    EXPECT_GT(segment(0).x(), segment(1).x());
    segment(0).setFocus();
    QTest::keyClick(&segment(0), Qt::Key_Left);
    EXPECT_EQ(control.selected(), 1);
}

TEST_F(SegmentedControlTest, TabGoesToTheSelectedSegmentAlone) {
    QWidget window;
    control.setParent(&window);
    control.select(1);
    show(window);
    window.setFocus();
    QTest::keyClick(&window, Qt::Key_Tab);
    EXPECT_TRUE(segment(1).hasFocus());
    control.setParent(nullptr);
}

TEST_F(SegmentedControlTest, ScreenReadersSeeAGroupOfRadioButtons) {
    EXPECT_EQ(accessible(control).role(), QAccessible::Grouping);
    EXPECT_EQ(accessibleName(control), "Destination");
    ASSERT_EQ(accessible(control).childCount(), 3);
    control.select(1);
    for (int i = 0; i < 3; ++i) {
        const auto* const child = accessible(control).child(i);
        EXPECT_EQ(child->role(), QAccessible::RadioButton);
        EXPECT_EQ(child->text(QAccessible::Name).toStdString(),
                  titles[static_cast<std::size_t>(i)].text);
        EXPECT_TRUE(child->state().checkable);
        EXPECT_EQ(child->state().checked, i == 1);
    }
}

TEST_F(SegmentedControlTest, TheSelectedSegmentIsRaisedAfterAShortTime) {
    show(control);
    EXPECT_EQ(colorAtEdgeOf(0), theme.color(ColorRole::selectedSegment));
    QTest::mouseClick(&segment(2), Qt::LeftButton);
    EXPECT_NE(colorAtEdgeOf(2), theme.color(ColorRole::selectedSegment)) << "there at once";
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return colorAtEdgeOf(2) == theme.color(ColorRole::selectedSegment) &&
               colorAtEdgeOf(0) == theme.color(ColorRole::segmentedTrack);
    }));
}

TEST_F(SegmentedControlTest, ItIs28HighAndGrowsWithTheFont) {
    show(control);
    EXPECT_EQ(control.sizeHint().height(), 28);
    enlargeFont(2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return control.sizeHint().height() > 28; }));
}

TEST_F(SegmentedControlTest, NaturalSegmentsAreAsWideAsTheirTitlesAndStretchedOnesEqual) {
    show(control);
    EXPECT_LT(segment(0).width(), segment(1).width());
    control.setFixedWidth(600);
    EXPECT_TRUE(QTest::qWaitFor([&] { return segment(2).width() == 200; }));
    EXPECT_EQ(segment(0).width(), 200);
    EXPECT_EQ(segment(1).width(), 200);
}

} // namespace
} // namespace blankwell
