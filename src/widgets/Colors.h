#pragma once

#include "platform/Appearance.h"

#include <QColor>

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

/// The contrast that every text has on what it stands on.
inline constexpr double readableContrast = 4.5;

/// How much two opaque colours differ in lightness, as the web's accessibility guidelines count it:
/// 1 for equal ones to 21 for black and white.
[[nodiscard]] double contrast(const QColor& one, const QColor& other);

/// What `color`, which may be translucent, looks like on the opaque `ground`.
[[nodiscard]] QColor blended(const QColor& color, const QColor& ground);

/// The colour of a role, with the desktop's accent colour where it has one. An accent that text
/// could not be read on is made darker or lighter until it can.
[[nodiscard]] QColor colorOf(ColorRole role, const DesktopAppearance& appearance);

} // namespace blankwell
