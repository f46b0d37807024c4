#include "platform/qt/TemplateIcon.h"

#include "shell/StatusIcon.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QImage>
#include <QPalette>

namespace blankwell {
namespace {

QImage imageOf(const QIcon& icon, int side) {
    return icon.pixmap(QSize(side, side)).toImage().convertToFormat(QImage::Format_ARGB32);
}

QColor colorAt(const QImage& image, QPointF place) {
    return image.pixelColor(
        QPointF(image.width() * place.x(), image.height() * place.y()).toPoint());
}

/// The palette is the application's own again at the end.
struct TextColor {
    explicit TextColor(const QColor& color) {
        auto palette = before;
        palette.setColor(QPalette::WindowText, color);
        QGuiApplication::setPalette(palette);
    }

    ~TextColor() { QGuiApplication::setPalette(before); }

    QPalette before = QGuiApplication::palette();
};

/// A place of the status icon: points of its 22 by 18, from its bottom left, in a square icon.
QPointF iconPlace(double x, double y) {
    return {x / 22, 1 - (y + 2) / 22};
}

constexpr int side = 220;

TEST(TemplateIconTest, TheFrontSheetHasTheColourOfTexts) {
    const TextColor color(Qt::red);
    EXPECT_EQ(colorAt(imageOf(drawnIcon(statusIcon()), side), iconPlace(16, 5)), QColor(Qt::red));
}

TEST(TemplateIconTest, TheSameIconFollowsAChangeOfThatColour) {
    const auto icon = drawnIcon(statusIcon());
    const TextColor light(Qt::black);
    EXPECT_EQ(colorAt(imageOf(icon, side), iconPlace(16, 5)), QColor(Qt::black));
    const TextColor dark(Qt::white);
    EXPECT_EQ(colorAt(imageOf(icon, side), iconPlace(16, 5)), QColor(Qt::white));
}

TEST(TemplateIconTest, TheBackSheetIsHalfTransparent) {
    const auto image = imageOf(drawnIcon(statusIcon()), side);
    EXPECT_NEAR(colorAt(image, iconPlace(5.8, 13)).alphaF(), 0.5, 0.02);
}

TEST(TemplateIconTest, PlusLinesAndFoldedCornerAreCutOut) {
    const auto image = imageOf(drawnIcon(statusIcon()), side);
    EXPECT_EQ(colorAt(image, iconPlace(6.65, 6.05)).alpha(), 0) << "plus";
    EXPECT_EQ(colorAt(image, iconPlace(12, 9.85)).alpha(), 0) << "line";
    EXPECT_EQ(colorAt(image, iconPlace(19, 16.2)).alpha(), 0) << "corner";
}

TEST(TemplateIconTest, TheIconIsUprightWithItsBadgeAtTheBottom) {
    const auto image = imageOf(drawnIcon(statusIcon()), side);
    EXPECT_EQ(colorAt(image, iconPlace(2.5, 6)).alpha(), 255);
    EXPECT_EQ(colorAt(image, iconPlace(2.5, 13)).alpha(), 0);
}

TEST(TemplateIconTest, EverySizeThatBarsAskForIsDrawn) {
    const auto icon = drawnIcon(statusIcon());
    for (const auto& size : icon.availableSizes()) {
        const auto image = imageOf(icon, size.width());
        EXPECT_EQ(image.size(), size);
        EXPECT_EQ(colorAt(image, iconPlace(17, 5)).alpha(), 255) << size.width();
    }
}

} // namespace
} // namespace blankwell
