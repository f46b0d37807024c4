#pragma once

#include "base/FileUrl.h"

#include <optional>
#include <string>
#include <vector>

namespace blankwell {

/// The program that the user opens folders with, by its desktop entry.
struct DirectoryHandler {
    /// The entry's file name, such as `org.kde.dolphin.desktop`.
    std::string desktopId;
    /// Its `Exec` line.
    std::string exec;

    friend bool operator==(const DirectoryHandler&, const DirectoryHandler&) = default;
};

/// A program and its arguments.
using Command = std::vector<std::string>;

/// The user's default program for `inode/directory`; nothing where there is none, or one that needs
/// a terminal.
[[nodiscard]] std::optional<DirectoryHandler> defaultDirectoryHandler();

/// The commands that show `item` with `handler`, the best first: one that also selects it, where
/// the program has one, then the `Exec` line with the folder of `item` in place of its field codes.
[[nodiscard]] std::vector<Command> revealCommands(const DirectoryHandler& handler,
                                                  const FileUrl& item);

} // namespace blankwell
