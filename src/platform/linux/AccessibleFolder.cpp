#include "platform/linux/AccessibleFolder.h"

#include "platform/linux/AccessibilityBus.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace blankwell {
namespace {

using Role = Accessible::Role;
using State = Accessible::State;

/// What holds a location bar; menus and the views of folders do not.
bool canHoldBar(Role role) {
    return role == Role::frame || role == Role::panel || role == Role::filler ||
           role == Role::splitPane || role == Role::toolBar;
}

/// What a path bar has for each folder on the way.
bool canBePathButton(Role role) {
    return role == Role::toggleButton || role == Role::checkBox;
}

bool isTop(const std::string& name) {
    return name.empty() || name == "/";
}

/// The path that the names of a path bar's buttons make, the folder itself first and the top last.
/// Nothing if they are no such buttons.
std::optional<std::string> joined(const std::vector<std::string>& names) {
    if (names.size() < 2 || !isTop(names.back())) {
        return std::nullopt;
    }
    std::string path;
    for (auto name = std::next(names.rbegin()); name != names.rend(); ++name) {
        if (name->empty() || name->contains('/')) {
            return std::nullopt;
        }
        path += '/' + *name;
    }
    return path;
}

/// Looks for all paths that location bars show.
class PathSearch {
public:
    /// Whether every question got its answer.
    bool search(Accessible& object) {
        auto children = object.children();
        if (!children) {
            return false;
        }
        std::vector<Accessible*> buttons;
        for (const auto& child : *children) {
            const auto role = child->role();
            if (!role) {
                return false;
            }
            if (canBePathButton(*role)) {
                buttons.push_back(child.get());
            } else if (!visit(*child, *role)) {
                return false;
            }
        }
        return readButtons(buttons);
    }

    [[nodiscard]] const std::set<std::string>& paths() const { return paths_; }

private:
    bool visit(Accessible& object, Role role) {
        const bool isField = role == Role::text || role == Role::entry;
        if (!isField && !canHoldBar(role)) {
            return true;
        }
        const auto isShowing = object.is(State::showing);
        if (!isShowing || !*isShowing) {
            return isShowing.has_value();
        }
        return isField ? readField(object) : search(object);
    }

    /// A field with the keyboard may hold what the user is about to type.
    bool readField(Accessible& field) {
        const auto isFocused = field.is(State::focused);
        const auto text = field.text();
        if (isFocused == false && text && text->starts_with('/')) {
            paths_.insert(*text);
        }
        return isFocused && text;
    }

    /// The buttons go from the deepest folder to the top, or the other way; the one that is down is
    /// of the folder in the window.
    bool readButtons(const std::vector<Accessible*>& buttons) {
        std::vector<std::string> names;
        std::vector<std::size_t> down;
        for (auto* const button : buttons) {
            const auto name = button->name();
            const auto isDown = button->is(State::checked);
            if (!name || !isDown) {
                return false;
            }
            if (*isDown) {
                down.push_back(names.size());
            }
            names.push_back(*name);
        }
        if (down.size() != 1) {
            return true;
        }
        const auto place = names.begin() + static_cast<std::ptrdiff_t>(down.front());
        const std::vector<std::string> upwards(place, names.end());
        const std::vector<std::string> downwards(std::reverse_iterator(std::next(place)),
                                                 names.rend());
        for (const auto& way : {upwards, downwards}) {
            if (auto path = joined(way)) {
                paths_.insert(*std::move(path));
            }
        }
        return true;
    }

    std::set<std::string> paths_;
};

} // namespace

std::optional<FileUrl> folderInAccessibleWindows(const Accessible::Children& windows,
                                                 std::string_view name, const IsFolder& isFolder) {
    PathSearch search;
    for (const auto& window : windows) {
        if (!search.search(*window)) {
            return std::nullopt;
        }
    }
    std::vector<FileUrl> folders;
    for (const auto& path : search.paths()) {
        FileUrl folder{path};
        if (folder.lastPathComponent() == name && isFolder(folder)) {
            folders.push_back(std::move(folder));
        }
    }
    const bool isOneFolder =
        !folders.empty() && std::ranges::count(folders, folders.front()) == std::ssize(folders);
    return isOneFolder ? std::optional(folders.front()) : std::nullopt;
}

std::optional<FileUrl> askAccessibleWindow(const DesktopWindow& window, std::string_view name,
                                           const IsFolder& isFolder, const Deadline& deadline) {
    auto bus = AccessibilityBus::connect(deadline);
    auto windows = bus ? bus->windows(window.processId, window.title) : std::nullopt;
    return windows ? folderInAccessibleWindows(*windows, name, isFolder) : std::nullopt;
}

} // namespace blankwell
