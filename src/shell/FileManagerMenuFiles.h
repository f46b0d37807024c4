#pragma once

#include "base/FileUrl.h"
#include "platform/Registrations.h"
#include "shell/CreateFileMenu.h"
#include "shell/FileManager.h"

#include <vector>

namespace blankwell {

/// Where file managers look for what extends their menus, and what their items run.
struct FileManagerPlaces {
    /// `XDG_DATA_HOME` and `XDG_CONFIG_HOME`.
    FileUrl dataHome;
    FileUrl configHome;
    /// Thunar's list of actions for all users, which need not exist.
    FileUrl usualThunarActions;
    /// The command line.
    FileUrl program;
};

/// What gives `manager` the menu: each item runs `program open TYPE FOLDER`, with the folder as the
/// file manager tells it. Nothing for an empty menu.
[[nodiscard]] std::vector<Registration> fileManagerMenuFiles(FileManager manager,
                                                             const CreateFileMenu& menu,
                                                             const FileManagerPlaces& places);

/// What the application's own extension of `manager` reads to make the menu. Nothing for an empty
/// menu.
[[nodiscard]] std::vector<Registration> extensionMenuFiles(FileManager manager,
                                                           const CreateFileMenu& menu,
                                                           const FileManagerPlaces& places);

} // namespace blankwell
