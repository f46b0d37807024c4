#include "views/MainWindowLayout.h"

#include <algorithm>

namespace blankwell {

using namespace mainwindow;

Points activationContentHeight(Points visibleHeight) {
    return std::min(std::max(contentMinimumSize.height, visibleHeight - screenMargin),
                    sceneDefaultSize.height);
}

std::optional<Rect> activatedWindowFrame(const Rect& frame, Points contentHeight,
                                         const Rect& visibleFrame) {
    const auto target = activationContentHeight(visibleFrame.size.height);
    if (contentHeight + 1 >= target) {
        return std::nullopt;
    }
    const auto height = target + (frame.size.height - contentHeight);
    const auto top = std::min(frame.maxY(), visibleFrame.maxY());
    return Rect{.origin = {.x = frame.minX(), .y = std::max(top - height, visibleFrame.minY())},
                .size = {.width = frame.size.width, .height = height}};
}

std::optional<Rect>
ActivationSizing::windowBecameActive(const Rect& frame, Points contentHeight,
                                     const std::optional<Rect>& visibleFrameOfScreen) {
    if (didApplyActivatedWindowSize_ || !visibleFrameOfScreen) {
        return std::nullopt;
    }
    didApplyActivatedWindowSize_ = true;
    return activatedWindowFrame(frame, contentHeight, *visibleFrameOfScreen);
}

} // namespace blankwell
