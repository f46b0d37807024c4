#pragma once

#include "base/FileUrl.h"

#include <optional>
#include <string>
#include <string_view>
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

/// The command that opens `url` with the user's default program: the one for its scheme, or for the
/// type of a `file` URL's item. Nothing where `url` is no URL, the item is not there, or no program
/// takes it that can do without a terminal.
[[nodiscard]] std::optional<Command> openCommand(std::string_view url);

} // namespace blankwell
