#include "shell/StatusMenu.h"

#include <string>
#include <utility>

namespace blankwell {
namespace {

using Item = MenuCommand<StatusMenuAction>;

Item command(const std::string& title, std::string symbol, StatusMenuAction action) {
    return {
        .title = title,
        .symbol = {.name = std::move(symbol), .accessibilityDescription = title},
        .action = std::move(action),
    };
}

void appendCategory(StatusMenu& menu, FileTypeCategory category,
                    std::span<const FileTypeDefinition> types,
                    CreationDestinationMode destination) {
    StatusMenu items;
    for (const auto& type : types) {
        if (type.category == category) {
            items.push_back(command(type.displayName, type.sfSymbolName,
                                    FileCreationMenuAction{type, destination}));
        }
    }
    if (items.empty()) {
        return;
    }
    if (!menu.empty()) {
        menu.push_back(MenuSeparator{});
    }
    menu.push_back(MenuHeader{std::string(rawValue(category))});
    menu.insert(menu.end(), std::make_move_iterator(items.begin()),
                std::make_move_iterator(items.end()));
}

Submenu<StatusMenuAction> creationSubmenu(std::string title, MenuSymbol symbol,
                                          std::span<const FileTypeDefinition> types,
                                          CreationDestinationMode destination) {
    Submenu<StatusMenuAction> submenu{.title = std::move(title), .symbol = std::move(symbol)};
    for (const auto category : allFileTypeCategories) {
        appendCategory(submenu.items, category, types, destination);
    }
    return submenu;
}

} // namespace

StatusMenu makeStatusMenu(std::span<const FileTypeDefinition> enabledTypes,
                          std::optional<bool> canCheckForUpdates) {
    using enum StatusMenuCommand;
    StatusMenu menu;
    menu.push_back(command("Quick Create...", "plus.square.on.square", showQuickCreate));
    menu.push_back(creationSubmenu("Create on Desktop", {"desktopcomputer", "Desktop"},
                                   enabledTypes, CreationDestinationMode::desktop));
    menu.push_back(creationSubmenu("Create in Finder Folder", {"folder", "Finder Folder"},
                                   enabledTypes, CreationDestinationMode::frontFinderFolder));
    menu.push_back(MenuSeparator{});
    menu.push_back(command("Open Blankwell+", "macwindow", openMainWindow));
    if (canCheckForUpdates) {
        auto item = command("Check for Updates...", "arrow.triangle.2.circlepath", checkForUpdates);
        item.isEnabled = *canCheckForUpdates;
        menu.push_back(std::move(item));
    }
    menu.push_back(MenuSeparator{});
    menu.push_back(command("Uninstall Blankwell+...", "trash", uninstall));
    menu.push_back(command("Quit Blankwell+", "power", quit));
    return menu;
}

} // namespace blankwell
