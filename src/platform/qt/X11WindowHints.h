#pragma once

#include <initializer_list>

class QWindow;

namespace blankwell {

/// What a window manager keeps of a window, by the names of the Extended Window Manager Hints.
enum class WindowState { above, skipTaskbar, skipPager };

/// Whether a window has a state.
enum class WindowStatePresence { absent, present };

/// Gives `window` the states or takes them away: a window that is shown by asking the window
/// manager, a hidden one by what is read when it is shown. Window managers forget the states of a
/// window that is hidden, so this is to be done before each showing. Does nothing off X11.
void setWindowStates(const QWindow& window, std::initializer_list<WindowState> states,
                     WindowStatePresence presence);

/// Has the hidden `window` appear on every desktop when it is shown. Does nothing off X11.
void putOnAllDesktops(const QWindow& window);

/// Brings the shown `window` to the front with the keyboard, as a user's own wish, which window
/// managers do not refuse. False off X11.
bool activateForUser(const QWindow& window);

} // namespace blankwell
