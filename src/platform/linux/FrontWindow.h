#pragma once

#include "platform/linux/DesktopWindow.h"

#include <optional>

namespace blankwell {

/// The file managers whose windows are recognised.
enum class FileManager { nautilus, dolphin, thunar, nemo, caja, pcmanfmQt };

/// A file manager's window.
struct FrontWindow {
    FileManager fileManager;
    DesktopWindow window;

    friend bool operator==(const FrontWindow&, const FrontWindow&) = default;
};

/// The file manager window that the user looks at: the highest in `stack` that shows folders, is
/// not hidden and stands on the visible virtual desktop. The desktop that a file manager draws is
/// one too, below all others. Nothing where there is none.
[[nodiscard]] std::optional<FrontWindow> frontWindow(const WindowStack& stack);

} // namespace blankwell
