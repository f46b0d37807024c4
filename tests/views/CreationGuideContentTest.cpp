#include "views/CreationGuideContent.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

TEST(CreationGuideContentTest, ShowsTheseTextsInThisOrderWithTheShortcutInBold) {
    const auto guide = creationGuideContent("⌘ + M");
    std::vector<std::string> lines{guide.symbol, guide.title};
    for (const auto& paragraph : guide.paragraphs) {
        lines.push_back(paragraph.text);
    }
    for (const auto& row : guide.rows) {
        lines.insert(lines.end(), {row.symbol, row.text});
    }
    const std::vector<std::string> expected{
        "folder.badge.questionmark",
        "Where Create File Appears",
        "Right-click → **Create File** works in Dropbox, Downloads, and your own folders.",
        "macOS blocks the right-click menu in OneDrive, Google Drive, iCloud Drive, Desktop, and "
        "Documents. To create files there, use either:",
        "macwindow.on.rectangle",
        "Add the **Create File** button to the Finder toolbar — it works in every folder. In "
        "Finder, choose **View ▸ Customize Toolbar…**, then drag the Create File button into the "
        "toolbar.",
        "keyboard",
        "Press **⌘ + M** to open Quick Create, or use the menu-bar icon."};
    EXPECT_EQ(lines, expected);
}

} // namespace
} // namespace blankwell
