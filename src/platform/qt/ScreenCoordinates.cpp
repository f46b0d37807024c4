#include "platform/qt/ScreenCoordinates.h"

#include <QRectF>

namespace blankwell {

Point ScreenCoordinates::pointOf(QPoint pixel) const {
    return {.x = Points(pixel.x()), .y = Points(bottom_ - pixel.y() - 1)};
}

Rect ScreenCoordinates::rectOf(const QRect& rectangle) const {
    return {
        .origin = {.x = Points(rectangle.x()),
                   .y = Points(bottom_ - rectangle.y() - rectangle.height())},
        .size = {.width = Points(rectangle.width()), .height = Points(rectangle.height())},
    };
}

QRect ScreenCoordinates::pixelsOf(const Rect& rectangle) const {
    const QPoint topLeft(qRound(rectangle.minX()), bottom_ - qRound(rectangle.maxY()));
    return {topLeft, QSize(qRound(rectangle.size.width), qRound(rectangle.size.height))};
}

} // namespace blankwell
