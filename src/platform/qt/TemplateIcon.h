#pragma once

#include <QIcon>

namespace blankwell {

struct DrawnImage;

/// An icon that is the shape of `image` in the colour of the texts around it, sharp at every size.
/// It is drawn anew whenever it is asked for, so it follows a change from light to dark.
[[nodiscard]] QIcon drawnIcon(const DrawnImage& image);

} // namespace blankwell
