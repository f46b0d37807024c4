#pragma once

namespace blankwell {

/// Lengths on screens and in drawings: one point is one pixel where the display is not scaled.
using Points = double;

/// A place in coordinates whose y grows upwards.
struct Point {
    Points x = 0;
    Points y = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
    Points width = 0;
    Points height = 0;

    friend bool operator==(const Size&, const Size&) = default;
};

/// A rectangle in coordinates whose y grows upwards, so that its origin is its bottom left corner.
struct Rect {
    Point origin;
    Size size;

    [[nodiscard]] constexpr Points minX() const { return origin.x; }

    [[nodiscard]] constexpr Points midX() const { return origin.x + size.width / 2; }

    [[nodiscard]] constexpr Points maxX() const { return origin.x + size.width; }

    [[nodiscard]] constexpr Points minY() const { return origin.y; }

    [[nodiscard]] constexpr Points midY() const { return origin.y + size.height / 2; }

    [[nodiscard]] constexpr Points maxY() const { return origin.y + size.height; }

    /// Whether `point` lies in it. The left and bottom edges belong to it, the others do not, so
    /// that of two rectangles side by side one has the point.
    [[nodiscard]] constexpr bool contains(Point point) const {
        return point.x >= minX() && point.x < maxX() && point.y >= minY() && point.y < maxY();
    }

    friend bool operator==(const Rect&, const Rect&) = default;
};

} // namespace blankwell
