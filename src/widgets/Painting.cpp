#include "widgets/Painting.h"

#include "widgets/QtStrings.h"

#include <fmt/core.h>

#include <QPainter>
#include <QPixmapCache>
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

void drawRepeatedShape(QPainter& painter, const QRect& rect, const Shape& shape) {
    const auto ratio = painter.device()->devicePixelRatioF();
    const auto key = qString(fmt::format("shape {} {} {} {} {} {:x} {:x}", rect.width(),
                                         rect.height(), ratio, shape.radius, shape.outlineWidth,
                                         shape.fill.rgba(), shape.outline.rgba()));
    QPixmap image;
    if (!QPixmapCache::find(key, &image)) {
        image = QPixmap((QSizeF(rect.size()) * ratio).toSize());
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::transparent);
        QPainter imagePainter(&image);
        drawShape(imagePainter, QRectF(QPointF(), rect.size()), shape);
        QPixmapCache::insert(key, image);
    }
    painter.drawPixmap(rect.topLeft(), image);
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
