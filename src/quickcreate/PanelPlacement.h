#pragma once

#include "base/Geometry.h"
#include "platform/Screens.h"

#include <optional>
#include <span>

namespace blankwell {

/// The free area to place a panel in: that of the screen the pointer is on, else of the main
/// screen, else one that is assumed.
[[nodiscard]] Rect visibleFrameAt(Point pointer, std::span<const Screen> screens,
                                  const std::optional<Screen>& mainScreen);

/// Where a panel of `size` goes: below and around `pointer`, inside `visibleFrame` with a margin.
/// An area that is too small for it keeps its top and right margins.
[[nodiscard]] Rect panelFrame(Point pointer, Size size, const Rect& visibleFrame);

} // namespace blankwell
