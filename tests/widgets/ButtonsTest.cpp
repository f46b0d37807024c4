#include "widgets/IconButton.h"
#include "widgets/PushButton.h"
#include "widgets/WidgetTest.h"

namespace blankwell {
namespace {

struct PushButtonTest : WidgetTest {
    PushButtonTest() {
        QObject::connect(&button, &QPushButton::clicked, [this] { ++clicks; });
    }

    PushButton button{theme, "Salt & Pepper"};
    int clicks = 0;
};

TEST_F(PushButtonTest, AClickAndSpaceAndReturnPressIt) {
    show(button);
    button.setFocus();
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(clicks, 2);
    QTest::keyClick(&button, Qt::Key_Return);
    QTest::keyClick(&button, Qt::Key_Enter);
    EXPECT_EQ(clicks, 4);
}

TEST_F(PushButtonTest, ADisabledOneCannotBePressed) {
    button.setEnabled(false);
    show(button);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(clicks, 0);
}

TEST_F(PushButtonTest, ScreenReadersSeeAButtonWithItsTitle) {
    EXPECT_EQ(accessible(button).role(), QAccessible::PushButton);
    EXPECT_EQ(accessibleName(button), "Salt & Pepper");
    EXPECT_TRUE(accessible(button).state().focusable);
    accessible(button).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicks == 1; }));
}

TEST_F(PushButtonTest, ItTakesTheKeyboardByTabAndNotByAClick) {
    QWidget window;
    button.setParent(&window);
    show(window);
    window.setFocus();
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_FALSE(button.hasFocus());
    QTest::keyClick(&window, Qt::Key_Tab);
    EXPECT_TRUE(button.hasFocus());
    button.setParent(nullptr);
}

TEST_F(PushButtonTest, HoverAndPressAreSeen) {
    show(button);
    button.clearFocus();
    button.setAttribute(Qt::WA_UnderMouse, false);
    const auto calm = imageOf(button);
    button.setDown(true);
    EXPECT_NE(imageOf(button), calm);
    button.setDown(false);
    EXPECT_EQ(imageOf(button), calm);
    button.setAttribute(Qt::WA_UnderMouse);
    EXPECT_NE(imageOf(button), calm);
}

TEST_F(PushButtonTest, ItIs28HighAndGrowsWithTheFont) {
    EXPECT_EQ(button.sizeHint().height(), 28);
    const auto width = button.sizeHint().width();
    enlargeFont(2);
    EXPECT_GT(button.sizeHint().height(), 28);
    EXPECT_GT(button.sizeHint().width(), width * 3 / 2);
}

TEST_F(PushButtonTest, TheAccentKindIsFilledWithTheAccent) {
    PushButton next(theme, "Next", PushButton::Kind::accent);
    next.resize(next.sizeHint());
    EXPECT_EQ(imageOf(next).pixelColor(next.width() / 2, 3), theme.color(ColorRole::accent));
    desktop.set({.scheme = ColorScheme::dark, .accent = std::nullopt});
    EXPECT_EQ(imageOf(next).pixelColor(next.width() / 2, 3), QColor("#6ea0ff"));
}

struct IconButtonTest : WidgetTest {
    IconButton button{theme, {.symbol = "xmark.circle", .help = "Clear Markdown shortcut"}};
};

TEST_F(IconButtonTest, ItsHelpTextIsItsNameAndItsToolTip) {
    EXPECT_EQ(accessible(button).role(), QAccessible::PushButton);
    EXPECT_EQ(accessibleName(button), "Clear Markdown shortcut");
    EXPECT_EQ(button.toolTip(), "Clear Markdown shortcut");
}

TEST_F(IconButtonTest, TheKeyboardAndThePointerPressIt) {
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, [&] { ++clicks; });
    show(button);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(clicks, 3);
}

TEST_F(IconButtonTest, ADisabledOneIsFainterAndSaysSo) {
    button.resize(button.sizeHint());
    const auto enabled = imageOf(button);
    button.setEnabled(false);
    EXPECT_NE(imageOf(button), enabled);
    EXPECT_TRUE(accessible(button).state().disabled);
}

} // namespace
} // namespace blankwell
