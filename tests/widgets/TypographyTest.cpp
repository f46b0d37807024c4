#include "widgets/Typography.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetricsF>
#include <QScreen>

namespace blankwell {
namespace {

/// The application's font is its own again at the end.
struct TypographyTest : testing::Test {
    ~TypographyTest() override { QApplication::setFont(before); }

    static void setPixelSize(double size) {
        auto font = QApplication::font();
        font.setPointSizeF(size / pixelsPerPoint());
        QApplication::setFont(font);
    }

    static double pixelSizeOf(TextStyle style) {
        return fontOf(style).pointSizeF() * pixelsPerPoint();
    }

    static double pixelsPerPoint() {
        return QGuiApplication::primaryScreen()->logicalDotsPerInchY() / 72;
    }

    QFont before = QApplication::font();
};

TEST_F(TypographyTest, SizesFollowTheDesktopsFont) {
    for (const double size : {13.0, 19.5}) {
        setPixelSize(size);
        EXPECT_NEAR(pixelSizeOf(TextStyle::body), size, 0.01);
        EXPECT_NEAR(pixelSizeOf(TextStyle::title), size * 1.7, 0.01);
        EXPECT_NEAR(pixelSizeOf(TextStyle::caption), size * 0.85, 0.01);
    }
}

TEST_F(TypographyTest, AFontMeasuredInPixelsCountsAsWell) {
    auto font = QApplication::font();
    font.setPixelSize(20);
    QApplication::setFont(font);
    EXPECT_NEAR(pixelSizeOf(TextStyle::title3), 23, 0.01);
}

TEST_F(TypographyTest, NoTextGetsTooSmallToRead) {
    setPixelSize(11);
    for (const auto style : allTextStyles) {
        EXPECT_GE(pixelSizeOf(style), smallestTextSize - 0.01);
    }
}

TEST_F(TypographyTest, WeightsTellTitlesFromTexts) {
    EXPECT_EQ(fontOf(TextStyle::title).weight(), QFont::DemiBold);
    EXPECT_EQ(fontOf(TextStyle::captionMedium).weight(), QFont::Medium);
    EXPECT_EQ(fontOf(TextStyle::caption).weight(), QFont::Normal);
}

TEST_F(TypographyTest, KeyCombinationsHaveLettersOfOneWidth) {
    const QFontMetricsF metrics(fontOf(TextStyle::monospaced));
    EXPECT_EQ(metrics.horizontalAdvance("iiii"), metrics.horizontalAdvance("MMMM"));
}

} // namespace
} // namespace blankwell
