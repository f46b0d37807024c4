#include "widgets/ProgressBar.h"

#include "widgets/WidgetTest.h"

namespace blankwell {
namespace {

struct ProgressBarTest : WidgetTest {
    ProgressBarTest() {
        bar.resize(200, bar.sizeHint().height());
        show(bar);
    }

    QImage imageAt(int value) {
        bar.setRange(0, 100);
        bar.setValue(value);
        return imageOf(bar);
    }

    /// Whether the picture changes by itself.
    bool moves() {
        const auto before = imageOf(bar);
        return QTest::qWaitFor([&] { return imageOf(bar) != before; }, 1000);
    }

    ProgressBar bar{theme};
};

TEST_F(ProgressBarTest, MoreIsLonger) {
    const auto none = imageAt(0);
    const auto some = imageAt(1);
    const auto half = imageAt(50);
    EXPECT_NE(some, none) << "a beginning is seen";
    EXPECT_NE(half, some);
    EXPECT_NE(imageAt(100), half);
}

TEST_F(ProgressBarTest, FillsFromWhereTextsBegin) {
    const auto usual = imageAt(30);
    bar.setLayoutDirection(Qt::RightToLeft);
    const auto mirrored = imageAt(30);
    const int middle = usual.height() / 2;
    const QPoint left(usual.width() / 10, middle);
    const QPoint right(usual.width() - left.x(), middle);
    EXPECT_EQ(mirrored.pixel(right), usual.pixel(left));
    EXPECT_EQ(mirrored.pixel(left), usual.pixel(right));
    EXPECT_NE(mirrored.pixel(left), mirrored.pixel(right));
}

TEST_F(ProgressBarTest, MovesWhileTheTimeIsNotKnown) {
    bar.setRange(0, 0);
    EXPECT_TRUE(moves());
}

TEST_F(ProgressBarTest, StandsStillWhereTheDesktopAsksForLessMotion) {
    desktop.set({.scheme = ColorScheme::light, .accent = std::nullopt, .reducesMotion = true});
    bar.setRange(0, 0);
    EXPECT_FALSE(moves());
    const auto still = imageOf(bar);
    EXPECT_NE(still, imageAt(0)) << "it says that something goes on";
}

TEST_F(ProgressBarTest, ScreenReadersHearHowFarItIs) {
    imageAt(40);
    EXPECT_EQ(accessible(bar).role(), QAccessible::ProgressBar);
    EXPECT_EQ(accessible(bar).valueInterface()->currentValue().toInt(), 40);
}

} // namespace
} // namespace blankwell
