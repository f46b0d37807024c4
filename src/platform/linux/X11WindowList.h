#pragma once

#include "platform/linux/DesktopWindow.h"

#include <optional>

namespace blankwell {

/// Asks the X server that `DISPLAY` names for its windows, over a connection made for the occasion.
/// Nothing where there is no X server or no window manager. Takes the same few exchanges
/// with the server, however many windows there are.
[[nodiscard]] std::optional<WindowStack> x11WindowStack();

} // namespace blankwell
