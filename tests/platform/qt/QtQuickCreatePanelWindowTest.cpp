#include "platform/qt/QtQuickCreatePanelWindow.h"

#include "platform/qt/QtApplication.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QRegion>
#include <QWidget>

#include <memory>

namespace blankwell {
namespace {

constexpr int radius = 12;

/// The outline of a window, white on black.
QImage imageOf(const QRegion& region, const QSize& size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.setClipRegion(region);
    painter.fillRect(image.rect(), Qt::white);
    return image;
}

struct QtQuickCreatePanelWindowTest : testing::Test {
    QtApplication application;
    QtQuickCreatePanelWindow window{{.contentSize = {200, 100},
                                     .hasFullSizeContentView = true,
                                     .titlebarAppearsTransparent = true},
                                    std::make_unique<QWidget>(),
                                    radius,
                                    application};
};

TEST_F(QtQuickCreatePanelWindowTest, ItsCornersAreRoundAndAllAlike) {
    const auto image = imageOf(window.widget().mask(), window.widget().size());
    EXPECT_EQ(image, image.mirrored(true, false));
    EXPECT_EQ(image, image.mirrored(false, true));
    // What stays free of a corner's square, in pixels: the square less a quarter of the circle.
    const auto square = image.copy(0, 0, radius, radius);
    int freePixels = 0;
    for (int y = 0; y < radius; ++y) {
        for (int x = 0; x < radius; ++x) {
            freePixels += square.pixelColor(x, y) == Qt::black ? 1 : 0;
        }
    }
    EXPECT_NEAR(freePixels, radius * radius * (1 - 3.14159 / 4), 3);
}

} // namespace
} // namespace blankwell
