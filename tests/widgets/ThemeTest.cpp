#include "widgets/Theme.h"

#include "support/FakeAppearance.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPalette>
#include <QTest>
#include <QWidget>

namespace blankwell {
namespace {

using namespace std::chrono_literals;

class CountingWidget : public QWidget {
public:
    int paints = 0;

protected:
    void paintEvent(QPaintEvent* /*event*/) override { ++paints; }
};

struct ThemeTest : testing::Test {
    FakeAppearance desktop;
    Theme theme{desktop};
};

TEST_F(ThemeTest, ColoursFollowTheDesktop) {
    EXPECT_EQ(theme.color(ColorRole::windowBackground), QColor("#f5f5f7"));
    EXPECT_FALSE(theme.isDark());
    desktop.set({.scheme = ColorScheme::dark, .accent = std::nullopt});
    EXPECT_EQ(theme.color(ColorRole::windowBackground), QColor("#1e1f22"));
    EXPECT_TRUE(theme.isDark());
}

TEST_F(ThemeTest, DialogsAndMenusHaveTheColoursOfTheTheme) {
    desktop.set({.scheme = ColorScheme::dark, .accent = std::nullopt});
    const auto palette = QApplication::palette();
    EXPECT_EQ(palette.color(QPalette::Window), theme.color(ColorRole::windowBackground));
    EXPECT_EQ(palette.color(QPalette::WindowText), theme.color(ColorRole::label));
    EXPECT_EQ(palette.color(QPalette::Highlight), theme.color(ColorRole::accent));
    EXPECT_EQ(palette.color(QPalette::HighlightedText), theme.color(ColorRole::textOnAccent));
    EXPECT_NE(palette.color(QPalette::Disabled, QPalette::ButtonText),
              palette.color(QPalette::Active, QPalette::ButtonText));
}

TEST_F(ThemeTest, AChangeRepaintsEveryShownWidget) {
    CountingWidget window;
    CountingWidget child;
    child.setParent(&window);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    for (const auto& appearance : {
             DesktopAppearance{.scheme = ColorScheme::dark, .accent = std::nullopt},
             DesktopAppearance{.scheme = ColorScheme::dark,
                               .accent = AccentColor{.red = 1, .green = 0.5, .blue = 0.5}},
         }) {
        const int before = child.paints;
        desktop.set(appearance);
        EXPECT_TRUE(QTest::qWaitFor([&] { return child.paints > before; }));
    }
}

TEST_F(ThemeTest, NothingMovesWhereTheDesktopAsksForLessMotion) {
    EXPECT_GE(theme.motion(), 120ms);
    EXPECT_LE(theme.motion(), 180ms);
    desktop.set({.scheme = ColorScheme::light, .accent = std::nullopt, .reducesMotion = true});
    EXPECT_EQ(theme.motion(), 0ms);
}

TEST_F(ThemeTest, ATranslucentColourIsThatOfItsRole) {
    const auto color = theme.color(ColorRole::accent, 0.12);
    EXPECT_NEAR(color.alphaF(), 0.12, 0.01);
    EXPECT_EQ(color.rgb(), theme.color(ColorRole::accent).rgb());
}

} // namespace
} // namespace blankwell
