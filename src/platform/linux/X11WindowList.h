#pragma once

#include "platform/linux/Deadline.h"
#include "platform/linux/DesktopWindow.h"

#include <optional>

namespace blankwell {

/// Asks the X server that `DISPLAY` names for its windows, over a connection made for the occasion.
/// Waits until `deadline` at most. Nothing where there is no X server or no window manager, where
/// the server does not answer in time, and as long as it owes an earlier answer. Takes the same
/// few exchanges with the server, however many windows there are.
[[nodiscard]] std::optional<WindowStack> x11WindowStack(const Deadline& deadline);

} // namespace blankwell
