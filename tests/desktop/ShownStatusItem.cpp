#include "desktop/ShownStatusItem.h"

#include "desktop/Program.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <stdexcept>

namespace blankwell {
namespace {

using nlohmann::json;

constexpr auto watcher = "org.kde.StatusNotifierWatcher";
constexpr auto menuInterface = "com.canonical.dbusmenu";

/// What busctl answers to `words`; null where it fails.
json busctl(Arguments words) {
    Arguments command{"busctl", "--user", "--auto-start=no", "--json=short", "--"};
    command.insert(command.end(), words.begin(), words.end());
    const auto answer = json::parse(outputOf(command), nullptr, false);
    return answer.is_discarded() ? json() : answer.at("data");
}

// An item of the menu is a number, its properties and its children, each of which is a variant.

json propertyOf(const json& item, const char* name, json otherwise) {
    const auto& properties = item.at(1);
    return properties.contains(name) ? properties.at(name).at("data") : std::move(otherwise);
}

std::string titleOf(const json& item) {
    return propertyOf(item, "label", "").get<std::string>();
}

std::string described(const json& item) {
    if (propertyOf(item, "type", "standard") == "separator") {
        return "--";
    }
    const std::string icon = propertyOf(item, "icon-data", json::array()).empty() ? "" : "* ";
    const auto title = titleOf(item);
    return icon + (propertyOf(item, "enabled", true) == true ? title : "(" + title + ")");
}

void describe(const json& items, const std::string& indent, std::string& text) {
    for (const auto& item : items) {
        text += indent + described(item.at("data")) + '\n';
        describe(item.at("data").at(2), indent + "  ", text);
    }
}

json itemTitled(const json& items, const std::string& title) {
    const auto found = std::ranges::find_if(
        items, [&](const json& item) { return titleOf(item.at("data")) == title; });
    if (found == items.end()) {
        throw std::runtime_error("the menu has no item " + title);
    }
    return found->at("data");
}

} // namespace

std::optional<ShownStatusItem> ShownStatusItem::find() {
    const auto items = busctl({"get-property", watcher, "/StatusNotifierWatcher", watcher,
                               "RegisteredStatusNotifierItems"});
    if (items.empty()) {
        return std::nullopt;
    }
    const auto address = items.at(0).get<std::string>();
    const auto slash = address.find('/');
    return ShownStatusItem(address.substr(0, slash), address.substr(slash));
}

std::string ShownStatusItem::toolTip() const {
    // An icon's name, its images, the title and a text.
    return property("ToolTip").at(2);
}

std::string ShownStatusItem::menu() const {
    std::string text;
    describe(menuItems(), "", text);
    return text;
}

void ShownStatusItem::choose(const std::vector<std::string>& titles) const {
    auto items = menuItems();
    json item;
    for (const auto& title : titles) {
        item = itemTitled(items, title);
        items = item.at(2);
    }
    busctl({"call", service_, menuObject(), menuInterface, "Event", "isvu",
            std::to_string(item.at(0).get<int>()), "clicked", "s", "", "0"});
}

json ShownStatusItem::property(const std::string& name) const {
    return busctl({"get-property", service_, object_, "org.kde.StatusNotifierItem", name});
}

std::string ShownStatusItem::menuObject() const {
    return property("Menu").get<std::string>();
}

json ShownStatusItem::menuItems() const {
    const auto layout = busctl(
        {"call", service_, menuObject(), menuInterface, "GetLayout", "iias", "0", "-1", "0"});
    // A revision, then the item that has all others.
    return layout.at(1).at(2);
}

} // namespace blankwell
