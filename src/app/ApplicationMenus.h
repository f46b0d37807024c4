#pragma once

#include "platform/Menu.h"

#include <optional>
#include <vector>

namespace blankwell {

/// What the items of the application's own menus do.
enum class ApplicationCommand {
    checkForUpdates,
    uninstall,
    quit,
    showHelp,
    showWelcomeWalkthrough,
};

using ApplicationMenu = Submenu<ApplicationCommand>;

/// The menus of the main window's menu bar, from left to right. There is no item to make anything
/// new: files are created elsewhere. `canCheckForUpdates` is as for the status menu.
[[nodiscard]] std::vector<ApplicationMenu>
makeApplicationMenus(std::optional<bool> canCheckForUpdates);

} // namespace blankwell
