#pragma once

#include <QFont>

#include <array>

namespace blankwell {

/// The styles of texts. Sizes are relative to the desktop's own font.
enum class TextStyle {
    title,
    title3,
    headline,
    body,
    callout,
    /// Names in tiles.
    calloutMedium,
    /// Titles of sections in lists.
    sectionTitle,
    caption,
    captionMedium,
    smallCaption,
    /// Key combinations.
    monospaced,
};

inline constexpr std::array allTextStyles{
    TextStyle::title,         TextStyle::title3,        TextStyle::headline,     TextStyle::body,
    TextStyle::callout,       TextStyle::calloutMedium, TextStyle::sectionTitle, TextStyle::caption,
    TextStyle::captionMedium, TextStyle::smallCaption,  TextStyle::monospaced,
};

/// The smallest size that text has, in pixels of an unscaled display.
inline constexpr double smallestTextSize = 10.5;

/// The font of a style, derived from the application's font at the moment of the call. So widgets
/// ask when they measure and when they paint, and give themselves no font of their own: then Qt
/// tells them when the desktop's font changes.
[[nodiscard]] QFont fontOf(TextStyle style);

} // namespace blankwell
