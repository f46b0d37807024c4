#pragma once

#include "base/Geometry.h"

#include <array>
#include <variant>
#include <vector>

namespace blankwell {

/// What a drawing step leaves where it draws.
struct Paint {
    enum class Mode {
        /// Black of the given alpha, laid over what is there.
        black,
        /// Nothing: what was there is taken away. The alpha has no meaning.
        clear,
    };

    Mode mode = Mode::black;
    double alpha = 1;

    friend bool operator==(const Paint&, const Paint&) = default;
};

struct FillRoundedRect {
    Paint paint;
    Rect rect;
    Points cornerRadius;

    friend bool operator==(const FillRoundedRect&, const FillRoundedRect&) = default;
};

/// The closed triangle of three corners.
struct FillTriangle {
    Paint paint;
    std::array<Point, 3> corners;

    friend bool operator==(const FillTriangle&, const FillTriangle&) = default;
};

/// The ellipse that touches the four sides of `bounds`.
struct FillEllipse {
    Paint paint;
    Rect bounds;

    friend bool operator==(const FillEllipse&, const FillEllipse&) = default;
};

/// A straight line with round ends.
struct StrokeLine {
    Paint paint;
    Point from;
    Point to;
    Points lineWidth;

    friend bool operator==(const StrokeLine&, const StrokeLine&) = default;
};

using DrawingStep = std::variant<FillRoundedRect, FillTriangle, FillEllipse, StrokeLine>;

/// Steps to be drawn one after the other, anti-aliased, on a ground that is clear at first.
using Drawing = std::vector<DrawingStep>;

/// An image that any toolkit can draw at any size.
struct DrawnImage {
    Size size;
    /// Only its shape counts: it is shown in the colour of the texts around it.
    bool isTemplate = false;
    /// The drawing that fills `destination`.
    Drawing (*drawing)(const Rect& destination);

    friend bool operator==(const DrawnImage&, const DrawnImage&) = default;
};

} // namespace blankwell
