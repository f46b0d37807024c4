#pragma once

#include "base/FileUrl.h"
#include "platform/FileManagers.h"
#include "platform/WellKnownFolders.h"
#include "platform/linux/FileManagerCommands.h"
#include "platform/linux/FileManagerProcesses.h"
#include "platform/linux/WindowFolders.h"

#include <functional>
#include <memory>
#include <vector>

namespace blankwell {

/// Nautilus, Dolphin, Thunar, Nemo, Caja and PCManFM-Qt as far as they run for this user in this
/// session. What makes it this session are the bus and the display that a process was started with.
///
/// Each is quit in its own way: by its command, Dolphin over the bus. Each that has ended by then
/// is started again by its command with the folders that its windows showed, as far as those tell,
/// and with the desktop if it drew that; one that still runs is left alone. `running` waits one
/// second at most for the answers about folders. Folders on Wayland are not known.
class SessionFileManagers : public FileManagers {
public:
    /// `wellKnown` must outlive this object. Programs start in `home`, or in "/" where
    /// that is no folder. `roots` is called by `running`, for the folders that the user works in.
    SessionFileManagers(const WellKnownFolders& wellKnown, FileUrl home,
                        std::function<std::vector<FileUrl>()> roots);

    [[nodiscard]] std::vector<std::unique_ptr<RunningFileManager>> running() override;
    void relaunch() override;

private:
    struct Found {
        std::shared_ptr<const FileManagerProcess> process;
        OpenFolders open;
    };

    FileUrl home_;
    WindowFolders folders_;
    std::vector<Found> found_;
};

} // namespace blankwell
