#pragma once

#include "platform/Appearance.h"
#include "platform/ColorRole.h"

#include <QColor>

namespace blankwell {

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
