#pragma once

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <vector>

namespace blankwell {

/// A status item as the program that shows it sees and uses it: by the interfaces of the
/// StatusNotifierItem protocol and the menu that it names.
class ShownStatusItem {
public:
    /// The first item that the bar has; nothing while it has none, or there is no bar.
    static std::optional<ShownStatusItem> find();

    [[nodiscard]] std::string toolTip() const;

    /// The menu, one line for each item, those of a submenu under it and indented by two blanks.
    /// "--" is a separator, a title in parentheses a disabled item, "* " stands before an item that
    /// has an icon.
    [[nodiscard]] std::string menu() const;

    /// Chooses the item to which `titles` lead, a submenu each but the last.
    void choose(const std::vector<std::string>& titles) const;

private:
    ShownStatusItem(std::string service, std::string object)
        : service_(std::move(service)), object_(std::move(object)) {}

    [[nodiscard]] nlohmann::json property(const std::string& name) const;
    [[nodiscard]] std::string menuObject() const;
    [[nodiscard]] nlohmann::json menuItems() const;

    std::string service_;
    std::string object_;
};

} // namespace blankwell
