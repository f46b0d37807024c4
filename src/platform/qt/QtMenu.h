#pragma once

#include "platform/Menu.h"

#include <QIcon>

#include <functional>
#include <string_view>

class QMenu;
class QMenuBar;

namespace blankwell {

class MainQueue;

/// The icon of a symbol by its name; a null icon for a symbol that there is not.
using SymbolIcons = std::function<QIcon(std::string_view name)>;

/// Replaces all that `menu` holds by the items of `items`. A command that is chosen runs from
/// `mainQueue`, which must outlive the menu: by then the menu is closed.
void fillMenu(QMenu& menu, const ActionMenu& items, MainQueue& mainQueue,
              const SymbolIcons& symbolIcons);

/// The same for a menu bar, which shows the submenus among `menus` from left to right.
void fillMenuBar(QMenuBar& bar, const ActionMenu& menus, MainQueue& mainQueue,
                 const SymbolIcons& symbolIcons);

} // namespace blankwell
