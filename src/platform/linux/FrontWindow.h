#pragma once

#include "platform/FileManager.h"
#include "platform/linux/DesktopWindow.h"

#include <optional>
#include <vector>

namespace blankwell {

/// A file manager's window.
struct FileManagerWindow {
    FileManager fileManager;
    DesktopWindow window;

    friend bool operator==(const FileManagerWindow&, const FileManagerWindow&) = default;
};

/// The file manager window that the user looks at: the highest in `stack` that shows folders, is
/// not hidden and stands on the visible virtual desktop. The desktop that a file manager draws is
/// one too, below all others. Nothing where there is none.
[[nodiscard]] std::optional<FileManagerWindow> frontWindow(const WindowStack& stack);

/// All file manager windows in `stack` that show folders, wherever they stand and hidden or not,
/// and the desktops that file managers draw; the lowest first.
[[nodiscard]] std::vector<FileManagerWindow> fileManagerWindows(const WindowStack& stack);

} // namespace blankwell
