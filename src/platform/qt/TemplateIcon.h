#pragma once

#include <QIcon>
#include <QRectF>

#include <functional>
#include <string_view>

class QPainter;

namespace blankwell {

struct DrawnImage;

/// Draws the shape of an image into a square. Its colours do not count, its transparency does.
using DrawShape = std::function<void(QPainter& painter, const QRectF& square)>;

/// An icon that is a shape in the colour of the texts around it, sharp at every size. It is drawn
/// anew whenever it is asked for, so it follows a change from light to dark.
[[nodiscard]] QIcon templateIcon(DrawShape drawShape);

/// A template icon with the steps of `image`.
[[nodiscard]] QIcon drawnIcon(const DrawnImage& image);

/// A template icon of the symbol `name`; a null icon where there is no such symbol.
[[nodiscard]] QIcon symbolIcon(std::string_view name);

} // namespace blankwell
