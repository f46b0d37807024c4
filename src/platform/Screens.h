#pragma once

#include "base/Geometry.h"

#include <optional>
#include <vector>

namespace blankwell {

/// One display of the desktop.
struct Screen {
    /// All of it.
    Rect frame;
    /// What bars and docks leave free.
    Rect visibleFrame;

    friend bool operator==(const Screen&, const Screen&) = default;
};

/// Where things are on the displays. One system of coordinates spans all of them: points, y growing
/// upwards.
class Screens {
public:
    virtual ~Screens() = default;

    /// Where the pointer is: inside the frame of the screen it is on, whose right and top edges are
    /// not part of it. Nothing where the display server tells nobody.
    [[nodiscard]] virtual std::optional<Point> pointerLocation() const = 0;

    /// The displays in the desktop's order.
    [[nodiscard]] virtual std::vector<Screen> screens() const = 0;

    /// The display that the user works on; nothing while no display is connected.
    [[nodiscard]] virtual std::optional<Screen> mainScreen() const = 0;
};

} // namespace blankwell
