#pragma once

#include "base/Geometry.h"

#include <optional>

namespace blankwell {

/// The sizes of the main window.
namespace mainwindow {
inline constexpr Size contentMinimumSize{.width = 720, .height = 520};
/// The height is also the most that the window grows to by itself.
inline constexpr Size sceneDefaultSize{.width = 770, .height = 1155};
/// What stays free of the screen's height.
inline constexpr Points screenMargin = 24;
inline constexpr Points scrollAreaMinimumHeight = 280;
inline constexpr Points scrollAreaIdealHeight = 360;
} // namespace mainwindow

/// How high the content of an activated window should be on a screen with `visibleHeight`.
[[nodiscard]] Points activationContentHeight(Points visibleHeight);

/// The frame that a window takes when it becomes active, on a screen that leaves `visibleFrame`
/// free; nothing where it is high enough already. All in coordinates whose y grows upwards; the
/// height above `contentHeight` is that of the title bar, which is kept.
[[nodiscard]] std::optional<Rect> activatedWindowFrame(const Rect& frame, Points contentHeight,
                                                       const Rect& visibleFrame);

/// Makes a window as high as its content wants to be, once, when the user first comes to it.
class ActivationSizing {
public:
    /// The frame to give to the window that became active, with display and animation. Nothing
    /// where it stays as it is: it is high enough, this has been done before, or there is no
    /// screen, in which case the next activation counts.
    [[nodiscard]] std::optional<Rect>
    windowBecameActive(const Rect& frame, Points contentHeight,
                       const std::optional<Rect>& visibleFrameOfScreen);

    [[nodiscard]] bool didApplyActivatedWindowSize() const { return didApplyActivatedWindowSize_; }

private:
    bool didApplyActivatedWindowSize_ = false;
};

} // namespace blankwell
