#pragma once

#include "filetypes/CreationDestination.h"
#include "filetypes/FileTypeDefinition.h"
#include "platform/Menu.h"

#include <optional>
#include <span>
#include <variant>

namespace blankwell {

/// Creates a file of `type` at `destination`.
struct FileCreationMenuAction {
    FileTypeDefinition type;
    CreationDestinationMode destination;

    friend bool operator==(const FileCreationMenuAction&, const FileCreationMenuAction&) = default;
};

/// The deeds of the status menu that need no more than their name.
enum class StatusMenuCommand {
    showQuickCreate,
    openMainWindow,
    checkForUpdates,
    uninstall,
    quit,
};

/// What an item of the status menu does.
using StatusMenuAction = std::variant<StatusMenuCommand, FileCreationMenuAction>;

using StatusMenu = Menu<StatusMenuAction>;

/// The menu of the status item, from top to bottom. `enabledTypes` are the types to offer, in the
/// user's order. `canCheckForUpdates` says whether a check may be asked for now; where it says
/// nothing the application does not update itself, and the menu has no item for it.
[[nodiscard]] StatusMenu makeStatusMenu(std::span<const FileTypeDefinition> enabledTypes,
                                        std::optional<bool> canCheckForUpdates);

} // namespace blankwell
