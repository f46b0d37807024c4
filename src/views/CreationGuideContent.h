#pragma once

#include "views/GuideElements.h"

#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

/// The short guide to where files can be created, from top to bottom.
struct CreationGuideContent {
    std::string symbol;
    std::string title;
    std::vector<GuideParagraph> paragraphs;
    std::vector<GuideRow> rows;

    friend bool operator==(const CreationGuideContent&, const CreationGuideContent&) = default;
};

/// `shortcut` is the Quick Create shortcut of the moment in words.
[[nodiscard]] CreationGuideContent creationGuideContent(std::string_view shortcut);

} // namespace blankwell
