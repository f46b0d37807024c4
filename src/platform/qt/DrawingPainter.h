#pragma once

#include <QRectF>

class QPainter;

namespace blankwell {

struct DrawnImage;

/// Draws `image` with its y upwards into `destination`, whose ground is clear.
void draw(const DrawnImage& image, QPainter& painter, const QRectF& destination);

} // namespace blankwell
