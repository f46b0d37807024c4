#include "widgets/Switch.h"

#include "widgets/WidgetTest.h"

namespace blankwell {
namespace {

struct SwitchTest : WidgetTest {
    /// How far the knob is from the left: where the row through the middle is white.
    int knobLeft() {
        const auto image = imageOf(toggle);
        int x = 0;
        while (x < image.width() && image.pixelColor(x, image.height() / 2) != Qt::white) {
            ++x;
        }
        return x;
    }

    void turnMotionOff() {
        desktop.set({.scheme = ColorScheme::light, .accent = std::nullopt, .reducesMotion = true});
    }

    Switch toggle{theme, "Markdown"};
};

TEST_F(SwitchTest, AClickAnywhereOnItAndSpaceAndReturnTurnIt) {
    show(toggle);
    QTest::mouseClick(&toggle, Qt::LeftButton, {}, {toggle.width() - 4, toggle.height() / 2});
    EXPECT_TRUE(toggle.isChecked());
    QTest::mouseClick(&toggle, Qt::LeftButton, {}, {4, toggle.height() / 2});
    EXPECT_FALSE(toggle.isChecked());
    QTest::keyClick(&toggle, Qt::Key_Space);
    EXPECT_TRUE(toggle.isChecked());
    QTest::keyClick(&toggle, Qt::Key_Return);
    EXPECT_FALSE(toggle.isChecked());
}

TEST_F(SwitchTest, ScreenReadersSeeACheckBoxAndItsState) {
    EXPECT_EQ(accessible(toggle).role(), QAccessible::CheckBox);
    EXPECT_EQ(accessibleName(toggle), "Markdown");
    EXPECT_TRUE(accessible(toggle).state().checkable);
    EXPECT_FALSE(accessible(toggle).state().checked);
    accessible(toggle).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(toggle.isChecked());
    EXPECT_TRUE(accessible(toggle).state().checked);
}

TEST_F(SwitchTest, TheKnobMovesOverInAShortTime) {
    show(toggle);
    const auto off = knobLeft();
    toggle.setChecked(true);
    EXPECT_LT(knobLeft(), off + 14) << "there at once";
    EXPECT_TRUE(QTest::qWaitFor([&] { return knobLeft() == off + 14; }));
}

TEST_F(SwitchTest, WithReducedMotionTheKnobIsThereAtOnce) {
    turnMotionOff();
    show(toggle);
    const auto off = knobLeft();
    toggle.setChecked(true);
    EXPECT_EQ(knobLeft(), off + 14);
}

TEST_F(SwitchTest, FromRightToLeftOnIsLeft) {
    toggle.setLayoutDirection(Qt::RightToLeft);
    toggle.resize(toggle.sizeHint());
    const auto off = knobLeft();
    toggle.setChecked(true);
    EXPECT_EQ(knobLeft(), off - 14);
}

TEST_F(SwitchTest, OnHasTheAccentAndOffHasNot) {
    toggle.resize(toggle.sizeHint());
    const auto trackColor = [&](int x) {
        return imageOf(toggle).pixelColor(x, toggle.height() / 2);
    };
    EXPECT_EQ(trackColor(toggle.width() - 10), theme.color(ColorRole::separator));
    toggle.setChecked(true);
    EXPECT_EQ(trackColor(10), theme.color(ColorRole::accent));
}

} // namespace
} // namespace blankwell
