#pragma once

#include "platform/Screens.h"

namespace blankwell {

/// The displays as Qt knows them.
///
/// On Wayland the pointer is known to nobody. With several displays under X11 the desktop tells no
/// display's free area, so that all of it counts as free.
class QtScreens : public Screens {
public:
    [[nodiscard]] std::optional<Point> pointerLocation() const override;

    [[nodiscard]] std::vector<Screen> screens() const override;

    /// The display of the application's window with the keyboard, else the primary one.
    [[nodiscard]] std::optional<Screen> mainScreen() const override;
};

} // namespace blankwell
