#include "widgets/FocusVisibility.h"

#include "widgets/PushButton.h"
#include "widgets/SegmentedControl.h"
#include "widgets/Switch.h"
#include "widgets/WidgetTest.h"

#include <QVBoxLayout>

namespace blankwell {
namespace {

struct FocusVisibilityTest : WidgetTest {
    FocusVisibilityTest() {
        auto* const layout = new QVBoxLayout(&window);
        layout->addWidget(first);
        layout->addWidget(second);
        show(window);
    }

    QWidget window;
    PushButton* first = new PushButton(theme, "First");
    PushButton* second = new PushButton(theme, "Second");
};

TEST_F(FocusVisibilityTest, AWindowThatOpensShowsNoFocus) {
    ASSERT_TRUE(first->hasFocus());
    EXPECT_FALSE(showsFocus(*first));
}

TEST_F(FocusVisibilityTest, AWindowThatIsOpenedAgainShowsNoFocusUntilAKeyIsPressed) {
    QTest::keyClick(first, Qt::Key_Tab);
    ASSERT_TRUE(showsFocus(*second));
    window.close();
    show(window);
    ASSERT_TRUE(second->hasFocus());
    EXPECT_FALSE(showsFocus(*second));
    QTest::keyClick(second, Qt::Key_Backtab);
    EXPECT_TRUE(showsFocus(*first));
}

TEST_F(FocusVisibilityTest, TheFirstKeyShowsWhereTheKeyboardIs) {
    const auto calm = imageOf(*second);
    QTest::keyClick(first, Qt::Key_Tab);
    EXPECT_FALSE(showsFocus(*first));
    EXPECT_TRUE(showsFocus(*second));
    EXPECT_NE(imageOf(*second), calm);
}

TEST_F(FocusVisibilityTest, AKeyThatMovesNothingShowsItToo) {
    const auto calm = imageOf(*first);
    QTest::keyClick(first, Qt::Key_Right, Qt::AltModifier);
    first->setFocus();
    EXPECT_TRUE(showsFocus(*first));
    EXPECT_NE(imageOf(*first), calm);
}

TEST_F(FocusVisibilityTest, AModifierAloneShowsNothing) {
    QTest::keyClick(first, Qt::Key_Control);
    EXPECT_FALSE(showsFocus(*first));
}

TEST_F(FocusVisibilityTest, ThePointerEndsItWhereverItIsPressed) {
    QTest::keyClick(first, Qt::Key_Tab);
    QTest::mouseClick(&window, Qt::LeftButton);
    EXPECT_TRUE(second->hasFocus());
    EXPECT_FALSE(showsFocus(*second));
}

TEST_F(FocusVisibilityTest, EachWindowHasItsOwn) {
    QTest::keyClick(first, Qt::Key_Tab);
    QWidget other;
    PushButton button(theme, "Other", PushButton::Kind::plain, &other);
    show(other);
    ASSERT_TRUE(button.hasFocus());
    EXPECT_FALSE(showsFocus(button));
}

TEST_F(FocusVisibilityTest, SwitchesAndSegmentsShowItLikewise) {
    auto& toggle = *new Switch(theme, "Markdown");
    const std::vector<SegmentedControl::Title> titles{{.text = "One", .symbol = {}},
                                                      {.text = "Two", .symbol = {}}};
    auto& control = *new SegmentedControl(theme, "Number", titles);
    window.layout()->addWidget(&toggle);
    window.layout()->addWidget(&control);
    QTest::qWait(0);
    const auto calmToggle = imageOf(toggle);
    const auto calmControl = imageOf(control);
    second->setFocus();
    QTest::keyClick(second, Qt::Key_Tab);
    EXPECT_NE(imageOf(toggle), calmToggle);
    QTest::keyClick(&toggle, Qt::Key_Tab);
    EXPECT_EQ(imageOf(toggle), calmToggle);
    EXPECT_NE(imageOf(control), calmControl);
}

} // namespace
} // namespace blankwell
