#include "app/ApplicationMenus.h"

#include <string>
#include <utility>

namespace blankwell {
namespace {

using enum ApplicationCommand;

MenuCommand<ApplicationCommand> command(std::string title, ApplicationCommand action,
                                        std::optional<KeyEquivalent> keys = std::nullopt) {
    return {.title = std::move(title),
            .symbol = {},
            .isEnabled = true,
            .action = action,
            .keyEquivalent = keys};
}

ApplicationMenu applicationMenu(std::optional<bool> canCheckForUpdates) {
    ApplicationMenu menu{.title = "Blankwell+", .symbol = {}, .items = {}};
    if (canCheckForUpdates) {
        auto item = command("Check for Updates...", checkForUpdates);
        item.isEnabled = *canCheckForUpdates;
        menu.items.emplace_back(std::move(item));
    }
    menu.items.emplace_back(MenuSeparator{});
    menu.items.emplace_back(command("Uninstall Blankwell+...", uninstall));
    menu.items.emplace_back(command("Quit Blankwell+", quit, KeyEquivalent{.key = 'q'}));
    return menu;
}

ApplicationMenu helpMenu() {
    return {.title = "Help",
            .symbol = {},
            .items = {
                command("Blankwell+ Help", showHelp, KeyEquivalent{.key = '/', .shift = true}),
                command("Show Welcome Walkthrough", showWelcomeWalkthrough),
            }};
}

} // namespace

std::vector<ApplicationMenu> makeApplicationMenus(std::optional<bool> canCheckForUpdates) {
    return {applicationMenu(canCheckForUpdates), helpMenu()};
}

} // namespace blankwell
