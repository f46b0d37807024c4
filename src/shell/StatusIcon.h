#pragma once

#include "platform/Drawing.h"

namespace blankwell {

/// The icon of the status item: two sheets of paper with a plus sign, 22 by 18 points, a template.
[[nodiscard]] DrawnImage statusIcon();

/// The steps that draw the icon in the middle of `destination`, as large as fits, its proportions
/// kept.
[[nodiscard]] Drawing statusIconDrawing(const Rect& destination);

} // namespace blankwell
