#include "shell/StatusIcon.h"

#include <algorithm>

namespace blankwell {
namespace {

constexpr Size iconSize{22, 18};

constexpr Paint black;
constexpr Paint halfBlack{.alpha = 0.5};
constexpr Paint clear{.mode = Paint::Mode::clear};

/// The icon's own coordinates, those of its full size, laid into a destination.
class Scale {
public:
    explicit Scale(const Rect& destination)
        : factor_(std::min(destination.size.width / iconSize.width,
                           destination.size.height / iconSize.height)),
          origin_{destination.midX() - iconSize.width / 2 * factor_,
                  destination.midY() - iconSize.height / 2 * factor_} {}

    [[nodiscard]] Points length(Points points) const { return points * factor_; }

    [[nodiscard]] Rect rect(Points x, Points y, Points width, Points height) const {
        return {{origin_.x + length(x), origin_.y + length(y)}, {length(width), length(height)}};
    }

private:
    double factor_;
    Point origin_;
};

FillTriangle foldedCorner(const Rect& sheet, Points fold) {
    return {
        .paint = clear,
        .corners = {{
            {sheet.maxX() - fold, sheet.maxY()},
            {sheet.maxX(), sheet.maxY() - fold},
            {sheet.maxX(), sheet.maxY()},
        }},
    };
}

/// A line of text on the sheet, `rise` above its middle.
StrokeLine textLine(const Rect& sheet, const Scale& scale, Points rise) {
    const Point start{sheet.minX() + scale.length(3.1), sheet.midY() + scale.length(rise)};
    return {
        .paint = clear,
        .from = start,
        .to = {start.x + scale.length(5.3), start.y},
        .lineWidth = scale.length(1.55),
    };
}

/// A stroke of the plus sign: its half from the centre of the badge is (dx, dy).
StrokeLine plusStroke(const Rect& badge, const Scale& scale, Points dx, Points dy) {
    return {
        .paint = clear,
        .from = {badge.midX() - dx, badge.midY() - dy},
        .to = {badge.midX() + dx, badge.midY() + dy},
        .lineWidth = scale.length(2.45),
    };
}

} // namespace

DrawnImage statusIcon() {
    return {.size = iconSize, .isTemplate = true, .drawing = statusIconDrawing};
}

Drawing statusIconDrawing(const Rect& destination) {
    const Scale scale(destination);
    const auto backSheet = scale.rect(4.9, 3.4, 12.6, 13.4);
    const auto frontSheet = scale.rect(7.0, 1.0, 12.8, 15.9);
    const auto badge = scale.rect(1.4, 0.8, 10.5, 10.5);
    const auto halfStroke = scale.length(2.7);
    return {
        FillRoundedRect{halfBlack, backSheet, scale.length(2.7)},
        FillRoundedRect{black, frontSheet, scale.length(2.8)},
        foldedCorner(frontSheet, scale.length(5.1)),
        textLine(frontSheet, scale, 0.9),
        textLine(frontSheet, scale, -2),
        FillEllipse{black, badge},
        plusStroke(badge, scale, halfStroke, 0),
        plusStroke(badge, scale, 0, halfStroke),
    };
}

} // namespace blankwell
