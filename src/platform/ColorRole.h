#pragma once

#include <array>

namespace blankwell {

/// What a colour is for. Views name roles, never colours.
enum class ColorRole {
    windowBackground,
    /// Of cards, tiles, fields and plain buttons.
    controlBackground,
    separator,
    label,
    secondaryLabel,
    tertiaryLabel,
    accent,
    /// Text on a fill of the accent.
    textOnAccent,
    /// Warnings, and what destroys something.
    red,
    segmentedTrack,
    selectedSegment,
};

inline constexpr std::array allColorRoles{
    ColorRole::windowBackground,
    ColorRole::controlBackground,
    ColorRole::separator,
    ColorRole::label,
    ColorRole::secondaryLabel,
    ColorRole::tertiaryLabel,
    ColorRole::accent,
    ColorRole::textOnAccent,
    ColorRole::red,
    ColorRole::segmentedTrack,
    ColorRole::selectedSegment,
};

} // namespace blankwell
