#pragma once

#include <QColor>
#include <QRectF>

class QPainter;
class QWidget;

namespace blankwell {

/// How a rounded rectangle is filled and outlined. The outline lies inside of the rectangle.
struct Shape {
    double radius = 0;
    QColor fill = Qt::transparent;
    QColor outline = Qt::transparent;
    double outlineWidth = 1;
};

/// Draws `shape` over `rect`, smoothly.
void drawShape(QPainter& painter, const QRectF& rect, const Shape& shape);

/// Draws the outline that shows where the keyboard is, inside of `rect`.
void drawFocusOutline(QPainter& painter, const QRectF& rect, double radius, const QColor& color);

/// How much of a control is seen: less while it cannot be used.
[[nodiscard]] double opacityOf(const QWidget& control);

/// `rect` as it lies in `widget` where texts run from right to left; as it is elsewhere.
[[nodiscard]] QRectF mirrored(const QRectF& rect, const QWidget& widget);

} // namespace blankwell
