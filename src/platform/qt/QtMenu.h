#pragma once

#include "platform/Menu.h"

class QMenu;

namespace blankwell {

class MainQueue;

/// Replaces all that `menu` holds by the items of `items`. A command that is chosen runs from
/// `mainQueue`, which must outlive the menu: by then the menu is closed.
void fillMenu(QMenu& menu, const ActionMenu& items, MainQueue& mainQueue);

} // namespace blankwell
