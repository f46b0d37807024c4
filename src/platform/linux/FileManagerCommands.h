#pragma once

#include "base/FileUrl.h"
#include "platform/linux/DirectoryHandler.h"
#include "platform/linux/FrontWindow.h"

#include <optional>
#include <vector>

namespace blankwell {

/// What a file manager had open.
struct OpenFolders {
    /// The folders of each window, in its tabs; empty for a window that does not tell.
    std::vector<std::vector<FileUrl>> windows;
    bool drawsDesktop = false;

    friend bool operator==(const OpenFolders&, const OpenFolders&) = default;
};

/// The command that asks the running `fileManager` to quit; nothing where there is none, for
/// Dolphin, whose processes are asked one by one.
[[nodiscard]] std::optional<Command> quitCommand(FileManager fileManager);

/// The commands that start `fileManager` with `open`, in any order. A window that did not tell
/// comes back with `home`. Tabs become windows where a command cannot open tabs. Without anything
/// open it waits in the background, as one that runs without a window does, if it can.
[[nodiscard]] std::vector<Command> startCommands(FileManager fileManager, const OpenFolders& open,
                                                 const FileUrl& home);

} // namespace blankwell
