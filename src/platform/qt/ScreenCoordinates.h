#pragma once

#include "base/Geometry.h"

#include <QPoint>
#include <QRect>

namespace blankwell {

/// The translation between Qt's coordinates, whose y grows downwards, and those of `Screens`. All
/// translations are made here.
class ScreenCoordinates {
public:
    /// Lets y be 0 at the bottom edge of `primaryScreen`.
    explicit ScreenCoordinates(const QRect& primaryScreen)
        : bottom_(primaryScreen.y() + primaryScreen.height()) {}

    /// The bottom left corner of the pixel at `pixel`, so that a pixel of a rectangle is inside the
    /// translated rectangle.
    [[nodiscard]] Point pointOf(QPoint pixel) const;

    [[nodiscard]] Rect rectOf(const QRect& rectangle) const;

    /// The pixels that `rectangle` covers, rounded to whole ones.
    [[nodiscard]] QRect pixelsOf(const Rect& rectangle) const;

private:
    int bottom_;
};

} // namespace blankwell
