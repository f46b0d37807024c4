#include "platform/qt/QtMenu.h"

#include "base/Overloaded.h"
#include "platform/MainQueue.h"
#include "platform/qt/QtText.h"

#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

#include <functional>
#include <variant>

namespace blankwell {
namespace {

using Command = MenuCommand<std::function<void()>>;
using CommandSubmenu = Submenu<std::function<void()>>;

/// A title in which no letter becomes a key to press.
QString label(const std::string& title) {
    return qtText(title).replace('&', "&&");
}

void addHeader(QMenu& menu, const MenuHeader& header) {
    // Not a section: its text does not reach the desktop's menus.
    menu.addAction(label(header.title))->setEnabled(false);
}

QKeySequence keySequence(const KeyEquivalent& equivalent) {
    const QString modifiers = equivalent.shift ? "Ctrl+Shift+" : "Ctrl+";
    return QKeySequence::fromString(modifiers + QChar::fromLatin1(equivalent.key).toUpper());
}

void addCommand(QMenu& menu, const Command& command, MainQueue& mainQueue,
                const SymbolIcons& symbolIcons) {
    auto* const action = menu.addAction(symbolIcons(command.symbol.name), label(command.title));
    action->setEnabled(command.isEnabled);
    if (command.keyEquivalent) {
        action->setShortcut(keySequence(*command.keyEquivalent));
    }
    QObject::connect(action, &QAction::triggered, action,
                     [&mainQueue, run = command.action] { mainQueue.async(run); });
}

/// To a menu or to a menu bar.
template <typename Parent>
void addSubmenu(Parent& menu, const CommandSubmenu& submenu, MainQueue& mainQueue,
                const SymbolIcons& symbolIcons) {
    auto* const child = menu.addMenu(symbolIcons(submenu.symbol.name), label(submenu.title));
    fillMenu(*child, submenu.items, mainQueue, symbolIcons);
}

template <typename Parent>
void clear(Parent& menu) {
    menu.clear();
    for (auto* const child : menu.template findChildren<QMenu*>(Qt::FindDirectChildrenOnly)) {
        // A menu that is destroyed with entries in it leaves them behind in the exported menu.
        clear(*child);
        delete child;
    }
}

} // namespace

void fillMenu(QMenu& menu, const ActionMenu& items, MainQueue& mainQueue,
              const SymbolIcons& symbolIcons) {
    clear(menu);
    for (const auto& item : items) {
        std::visit(
            Overloaded{
                [&](const MenuSeparator&) { menu.addSeparator(); },
                [&](const MenuHeader& header) { addHeader(menu, header); },
                [&](const Command& command) { addCommand(menu, command, mainQueue, symbolIcons); },
                [&](const CommandSubmenu& submenu) {
                    addSubmenu(menu, submenu, mainQueue, symbolIcons);
                },
            },
            item);
    }
}

void fillMenuBar(QMenuBar& bar, const ActionMenu& menus, MainQueue& mainQueue,
                 const SymbolIcons& symbolIcons) {
    clear(bar);
    for (const auto& menu : menus) {
        if (const auto* const submenu = std::get_if<CommandSubmenu>(&menu)) {
            addSubmenu(bar, *submenu, mainQueue, symbolIcons);
        }
    }
}

} // namespace blankwell
