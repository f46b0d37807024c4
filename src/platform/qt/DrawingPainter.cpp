#include "platform/qt/DrawingPainter.h"

#include "base/Overloaded.h"
#include "platform/Drawing.h"

#include <QPainter>
#include <QPen>
#include <QPolygonF>

#include <algorithm>
#include <iterator>
#include <variant>

namespace blankwell {
namespace {

QPointF qt(const Point& point) {
    return {point.x, point.y};
}

QRectF qt(const Rect& rect) {
    return {rect.minX(), rect.minY(), rect.size.width, rect.size.height};
}

QColor prepare(QPainter& painter, const Paint& paint) {
    if (paint.mode == Paint::Mode::clear) {
        painter.setCompositionMode(QPainter::CompositionMode_Clear);
        return Qt::black;
    }
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    return QColor::fromRgbF(0, 0, 0, static_cast<float>(paint.alpha));
}

void prepareToFill(QPainter& painter, const Paint& paint) {
    painter.setBrush(prepare(painter, paint));
    painter.setPen(Qt::NoPen);
}

void draw(const DrawingStep& step, QPainter& painter) {
    std::visit(Overloaded{
                   [&](const FillRoundedRect& fill) {
                       prepareToFill(painter, fill.paint);
                       painter.drawRoundedRect(qt(fill.rect), fill.cornerRadius, fill.cornerRadius);
                   },
                   [&](const FillTriangle& fill) {
                       prepareToFill(painter, fill.paint);
                       QPolygonF triangle;
                       std::ranges::transform(fill.corners, std::back_inserter(triangle),
                                              [](const Point& corner) { return qt(corner); });
                       painter.drawPolygon(triangle);
                   },
                   [&](const FillEllipse& fill) {
                       prepareToFill(painter, fill.paint);
                       painter.drawEllipse(qt(fill.bounds));
                   },
                   [&](const StrokeLine& stroke) {
                       painter.setPen(QPen(prepare(painter, stroke.paint), stroke.lineWidth,
                                           Qt::SolidLine, Qt::RoundCap));
                       painter.drawLine(qt(stroke.from), qt(stroke.to));
                   },
               },
               step);
}

} // namespace

void draw(const DrawnImage& image, QPainter& painter, const QRectF& destination) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(destination.left(), destination.bottom());
    painter.scale(1, -1);
    const Rect upright{.size = {.width = destination.width(), .height = destination.height()}};
    for (const auto& step : image.drawing(upright)) {
        draw(step, painter);
    }
    painter.restore();
}

} // namespace blankwell
