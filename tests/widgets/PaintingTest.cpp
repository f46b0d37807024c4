#include "widgets/Painting.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QPixmapCache>

#include <algorithm>
#include <cstdlib>
#include <functional>

namespace blankwell {
namespace {

constexpr QRect place(7, 5, 60, 40);

QImage drawn(double ratio, const std::function<void(QPainter&)>& draw) {
    QImage image((QSizeF(80, 60) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    QPainter painter(&image);
    draw(painter);
    return image;
}

QImage once(double ratio, const Shape& shape) {
    return drawn(ratio, [&](QPainter& painter) { drawShape(painter, place, shape); });
}

QImage repeated(double ratio, const Shape& shape) {
    return drawn(ratio, [&](QPainter& painter) { drawRepeatedShape(painter, place, shape); });
}

/// The largest difference of a colour's part, of 255.
int difference(const QImage& left, const QImage& right) {
    int result = 0;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x) {
            const auto a = left.pixel(x, y);
            const auto b = right.pixel(x, y);
            result = std::max({result, std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                               std::abs(qBlue(a) - qBlue(b))});
        }
    }
    return result;
}

constexpr int rounding = 2;

struct RepeatedShapeTest : testing::Test {
    RepeatedShapeTest() { QPixmapCache::clear(); }

    Shape shape{.radius = 8, .fill = QColor(20, 90, 220, 120), .outline = QColor(0, 0, 0, 60)};
};

TEST_F(RepeatedShapeTest, LooksEachTimeAsIfDrawnOnce) {
    for (const double ratio : {1.0, 2.0}) {
        const auto expected = once(ratio, shape);
        ASSERT_GT(difference(expected, once(ratio, {})), 100);
        EXPECT_LE(difference(repeated(ratio, shape), expected), rounding) << ratio;
        EXPECT_LE(difference(repeated(ratio, shape), expected), rounding) << ratio;
    }
}

TEST_F(RepeatedShapeTest, EachLookIsDrawnAsItIs) {
    repeated(1, shape);
    const auto expectOwnLook = [](const Shape& other) {
        EXPECT_LE(difference(repeated(1, other), once(1, other)), rounding);
    };
    auto rounder = shape;
    rounder.radius = 20;
    expectOwnLook(rounder);
    auto filled = shape;
    filled.fill = Qt::red;
    expectOwnLook(filled);
    auto outlined = shape;
    outlined.outline = Qt::red;
    expectOwnLook(outlined);
    auto thicker = shape;
    thicker.outlineWidth = 4;
    expectOwnLook(thicker);
}

TEST_F(RepeatedShapeTest, EachSizeIsDrawnAsItIs) {
    repeated(1, shape);
    for (const QRect other : {place.adjusted(0, 0, 9, 0), place.adjusted(0, 0, 0, 9)}) {
        const auto expected =
            drawn(1, [&](QPainter& painter) { drawShape(painter, other, shape); });
        const auto result =
            drawn(1, [&](QPainter& painter) { drawRepeatedShape(painter, other, shape); });
        EXPECT_LE(difference(result, expected), rounding);
    }
}

} // namespace
} // namespace blankwell
