#include "widgets/Painting.h"

#include <QPainter>
#include <QStyle>
#include <QTextOption>
#include <QWidget>

#include <algorithm>

namespace blankwell {

void drawShape(QPainter& painter, const QRectF& rect, const Shape& shape) {
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isOutlined = shape.outline.alpha() > 0;
    const auto inset = isOutlined ? shape.outlineWidth / 2 : 0.0;
    painter.setBrush(shape.fill.alpha() > 0 ? QBrush(shape.fill) : QBrush());
    painter.setPen(isOutlined ? QPen(shape.outline, shape.outlineWidth) : QPen(Qt::NoPen));
    const auto radius = std::max(shape.radius - inset, 0.0);
    painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius, radius);
}

void drawFocusOutline(QPainter& painter, const QRectF& rect, double radius, const QColor& color) {
    drawShape(painter, rect,
              {.radius = radius, .fill = Qt::transparent, .outline = color, .outlineWidth = 2});
}

void drawLine(QPainter& painter, const QRectF& rect, Qt::Alignment alignment, const QString& text,
              const QWidget& widget) {
    QTextOption option(QStyle::visualAlignment(widget.layoutDirection(), alignment) |
                       Qt::AlignAbsolute | Qt::AlignVCenter);
    option.setTextDirection(Qt::LayoutDirectionAuto);
    option.setWrapMode(QTextOption::NoWrap);
    painter.drawText(rect, text, option);
}

double opacityOf(const QWidget& control) {
    return control.isEnabled() ? 1 : 0.45;
}

QRectF mirrored(const QRectF& rect, const QWidget& widget) {
    if (!widget.isRightToLeft()) {
        return rect;
    }
    auto result = rect;
    result.moveLeft(widget.width() - rect.right());
    return result;
}

} // namespace blankwell
