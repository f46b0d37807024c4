#pragma once

#include "views/GuideElements.h"

#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

/// The page about the file manager's menu, for desktops without system settings for it.
struct ExtensionPageContent {
    std::string symbol;
    std::string title;
    /// Above the cards about the menus.
    GuideParagraph introduction;
    /// Below them, with its rows.
    GuideParagraph otherWays;
    std::vector<GuideRow> rows;

    friend bool operator==(const ExtensionPageContent&, const ExtensionPageContent&) = default;
};

/// `shortcut` is the Quick Create shortcut of the moment in words.
[[nodiscard]] ExtensionPageContent extensionPageContent(std::string_view shortcut);

} // namespace blankwell
