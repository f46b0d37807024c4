#pragma once

#include "base/FileUrl.h"
#include "platform/FrontFolder.h"
#include "platform/WellKnownFolders.h"
#include "platform/linux/WindowFolders.h"

#include <functional>
#include <vector>

namespace blankwell {

/// The folder in the frontmost file manager window on an X11 display, XWayland's among them.
/// Nothing is started for it, and only an exact answer counts:
///
/// - A window that the application's own extension has written its location on shows that.
/// - Nautilus says which folders its windows show.
/// - Dolphin is asked whether it shows one of the folders that can be thought of: home, the user's
///   own folders, `roots`, mounted volumes and the top, and what is called like the window there or
///   one level below. A folder deeper down, or one of several tabs, it tells only with
///   `ShowFullPathInTitlebar`.
/// - Thunar and Nemo tell where the user has set that the title shows the full path.
/// - Caja and PCManFM-Qt do not tell.
/// - The desktop that a file manager draws is the Desktop folder.
///
/// A window with a place that is no folder on a disk counts as the front window, without an answer.
/// Waits 300 ms at most for all the answers of the X server and of file managers together.
class FileManagerFrontFolder : public FrontFolder {
public:
    /// `wellKnown` must outlive this object. `roots` is called for each question, for the folders
    /// that the user works in.
    FileManagerFrontFolder(const WellKnownFolders& wellKnown, FileUrl home,
                           std::function<std::vector<FileUrl>()> roots);

    [[nodiscard]] std::optional<std::string> path() override;

private:
    WindowFolders folders_;
};

} // namespace blankwell
