#pragma once

#include "base/Overloaded.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace blankwell {

/// A symbol beside a menu item, shown in the colour of the text.
struct MenuSymbol {
    /// By its name in the platform's symbol set.
    std::string name;
    /// For those who do not see it.
    std::string accessibilityDescription;

    friend bool operator==(const MenuSymbol&, const MenuSymbol&) = default;
};

struct MenuSeparator {
    friend bool operator==(const MenuSeparator&, const MenuSeparator&) = default;
};

/// A disabled item that titles the items below it.
struct MenuHeader {
    std::string title;

    friend bool operator==(const MenuHeader&, const MenuHeader&) = default;
};

/// The keys that choose a menu item while the application is in front. Command is the modifier that
/// menus use on this desktop, and is always held.
struct KeyEquivalent {
    /// The character on the key, in its small form.
    char key = 0;
    bool shift = false;

    friend bool operator==(const KeyEquivalent&, const KeyEquivalent&) = default;
};

/// An item that does something.
template <typename Action>
struct MenuCommand {
    std::string title;
    MenuSymbol symbol;
    bool isEnabled = true;
    Action action;
    std::optional<KeyEquivalent> keyEquivalent = std::nullopt;

    friend bool operator==(const MenuCommand&, const MenuCommand&) = default;
};

template <typename Action>
struct Submenu;

template <typename Action>
using MenuItem = std::variant<MenuSeparator, MenuHeader, MenuCommand<Action>, Submenu<Action>>;

/// An item that opens a menu which bears the same title.
template <typename Action>
struct Submenu {
    std::string title;
    MenuSymbol symbol;
    std::vector<MenuItem<Action>> items;

    friend bool operator==(const Submenu& left, const Submenu& right) {
        return left.title == right.title && left.symbol == right.symbol &&
               left.items == right.items;
    }
};

/// A menu as a value, from top to bottom. What its commands do is an `Action`: a name of the deed
/// where menus are made, the deed itself where they are shown.
template <typename Action>
using Menu = std::vector<MenuItem<Action>>;

/// A menu whose commands can be run.
using ActionMenu = Menu<std::function<void()>>;

/// The same menu with each action replaced by what `makeAction` makes of it.
template <typename Action, typename MakeAction>
[[nodiscard]] ActionMenu withActions(Menu<Action> menu, const MakeAction& makeAction) {
    using Deed = std::function<void()>;
    const Overloaded convert{
        [](MenuSeparator separator) -> MenuItem<Deed> { return separator; },
        [](MenuHeader&& header) -> MenuItem<Deed> { return std::move(header); },
        [&](MenuCommand<Action>&& command) -> MenuItem<Deed> {
            return MenuCommand<Deed>{std::move(command.title), std::move(command.symbol),
                                     command.isEnabled, makeAction(std::move(command.action)),
                                     command.keyEquivalent};
        },
        [&](Submenu<Action>&& submenu) -> MenuItem<Deed> {
            return Submenu<Deed>{std::move(submenu.title), std::move(submenu.symbol),
                                 withActions<Action>(std::move(submenu.items), makeAction)};
        },
    };
    ActionMenu result;
    result.reserve(menu.size());
    for (auto& item : menu) {
        result.push_back(std::visit(convert, std::move(item)));
    }
    return result;
}

} // namespace blankwell
