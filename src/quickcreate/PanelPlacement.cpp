#include "quickcreate/PanelPlacement.h"

#include <algorithm>

namespace blankwell {
namespace {

constexpr Points margin = 12;
/// From the pointer down to the panel's bottom edge.
constexpr Points drop = 96;
constexpr Rect assumedFrame{.size = {1280, 800}};

/// `position` kept clear of both ends; of the upper one where it cannot be of both.
Points clamped(Points position, Points minimum, Points maximum, Points length) {
    return std::min(std::max(position, minimum + margin), maximum - length - margin);
}

} // namespace

Rect visibleFrameAt(Point pointer, std::span<const Screen> screens,
                    const std::optional<Screen>& mainScreen) {
    const auto found = std::ranges::find_if(
        screens, [&](const Screen& screen) { return screen.frame.contains(pointer); });
    if (found != screens.end()) {
        return found->visibleFrame;
    }
    return mainScreen ? mainScreen->visibleFrame : assumedFrame;
}

Rect panelFrame(Point pointer, Size size, const Rect& visibleFrame) {
    return {
        .origin =
            {
                .x = clamped(pointer.x - size.width / 2, visibleFrame.minX(), visibleFrame.maxX(),
                             size.width),
                .y = clamped(pointer.y - drop, visibleFrame.minY(), visibleFrame.maxY(),
                             size.height),
            },
        .size = size,
    };
}

} // namespace blankwell
