#include "views/CreationGuideContent.h"

#include <fmt/format.h>

namespace blankwell {

CreationGuideContent creationGuideContent(std::string_view shortcut) {
    return {
        .symbol = "folder.badge.questionmark",
        .title = "Where Create File Appears",
        .paragraphs =
            {
                {"Right-click → **Create File** works in Dropbox, Downloads, and your own "
                 "folders."},
                {"macOS blocks the right-click menu in OneDrive, Google Drive, iCloud Drive, "
                 "Desktop, and Documents. To create files there, use either:"},
            },
        .rows =
            {
                {"macwindow.on.rectangle",
                 "Add the **Create File** button to the Finder toolbar — it works in every folder. "
                 "In Finder, choose **View ▸ Customize Toolbar…**, then drag the Create File "
                 "button into the toolbar."},
                {"keyboard",
                 fmt::format("Press **{}** to open Quick Create, or use the menu-bar icon.",
                             shortcut)},
            },
    };
}

} // namespace blankwell
