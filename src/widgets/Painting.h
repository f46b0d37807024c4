#pragma once

#include <QColor>
#include <QRect>
#include <QRectF>
#include <Qt>

class QPainter;
class QString;
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

/// Draws `shape` over `rect`, which begins on a whole pixel, as `drawShape` does. Its picture is
/// kept for the next time: for shapes of one look that are drawn many times over.
void drawRepeatedShape(QPainter& painter, const QRect& rect, const Shape& shape);

/// Draws the outline that shows where the keyboard is, inside of `rect`.
void drawFocusOutline(QPainter& painter, const QRectF& rect, double radius, const QColor& color);

/// Draws one line of text in the painter's font and colour, in the middle of the height of `rect`.
/// `alignment` counts for `widget`: leading is right where texts run from right to left. A text
/// itself runs as its letters do.
void drawLine(QPainter& painter, const QRectF& rect, Qt::Alignment alignment, const QString& text,
              const QWidget& widget);

/// How much of a control is seen: less while it cannot be used.
[[nodiscard]] double opacityOf(const QWidget& control);

/// `rect` as it lies in `widget` where texts run from right to left; as it is elsewhere.
[[nodiscard]] QRectF mirrored(const QRectF& rect, const QWidget& widget);

} // namespace blankwell
