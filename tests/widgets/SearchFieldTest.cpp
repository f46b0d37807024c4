#include "widgets/SearchField.h"

#include "widgets/WidgetTest.h"

#include <QLineEdit>

namespace blankwell {
namespace {

struct SearchFieldTest : WidgetTest {
    SearchField field{theme, "Search file types"};
};

TEST_F(SearchFieldTest, TheFieldGivesTheKeyboardToItsText) {
    show(field);
    field.setFocus();
    EXPECT_TRUE(field.edit().hasFocus());
    QTest::keyClicks(&field.edit(), "mark");
    EXPECT_EQ(field.edit().text(), "mark");
}

TEST_F(SearchFieldTest, TheRingShowsThatItHasTheKeyboard) {
    QWidget window;
    field.setParent(&window);
    window.setFocusPolicy(Qt::StrongFocus);
    show(window);
    window.setFocus();
    const auto edge = [&] { return imageOf(field).pixelColor(field.width() / 2, 1); };
    const auto calm = edge();
    field.setFocus();
    EXPECT_NE(edge(), calm);
    window.setFocus();
    EXPECT_EQ(edge(), calm);
    field.setParent(nullptr);
}

TEST_F(SearchFieldTest, ItsFrameIs34HighAndTheRingAround) {
    EXPECT_EQ(std::max(field.sizeHint().height(), field.minimumHeight()), 34 + 2 * 3);
}

TEST_F(SearchFieldTest, TextBeginsAtTheSymbolWhereverThatIs) {
    EXPECT_FALSE(field.edit().alignment().testFlag(Qt::AlignRight));
    field.setLayoutDirection(Qt::RightToLeft);
    EXPECT_TRUE(field.edit().alignment().testFlags(Qt::AlignRight | Qt::AlignAbsolute));
    field.setLayoutDirection(Qt::LeftToRight);
    EXPECT_FALSE(field.edit().alignment().testFlag(Qt::AlignRight));
}

TEST_F(SearchFieldTest, ScreenReadersSeeATextFieldWithThePromptAsItsName) {
    EXPECT_EQ(accessible(field.edit()).role(), QAccessible::EditableText);
    EXPECT_EQ(accessibleName(field.edit()), "Search file types");
}

} // namespace
} // namespace blankwell
