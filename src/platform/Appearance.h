#pragma once

#include "base/Subscription.h"

#include <functional>
#include <optional>

namespace blankwell {

enum class ColorScheme { light, dark };

/// A colour of sRGB; its components go from 0 to 1.
struct AccentColor {
    double red = 0;
    double green = 0;
    double blue = 0;

    friend bool operator==(const AccentColor&, const AccentColor&) = default;
};

/// What the user wants all programs of the desktop to look like.
struct DesktopAppearance {
    ColorScheme scheme = ColorScheme::light;
    /// Nothing where the desktop has no opinion.
    std::optional<AccentColor> accent;
    /// Things should not move on the screen.
    bool reducesMotion = false;

    friend bool operator==(const DesktopAppearance&, const DesktopAppearance&) = default;
};

/// Tells how the desktop looks now, and of each change. Belongs to the main thread.
class Appearance {
public:
    virtual ~Appearance() = default;

    /// What is known now, at once. May still be a guess shortly after the start.
    [[nodiscard]] virtual DesktopAppearance current() const = 0;

    /// Calls `observer` after each change, when `current` tells of it.
    virtual Subscription observeChanges(std::function<void()> observer) = 0;
};

} // namespace blankwell
