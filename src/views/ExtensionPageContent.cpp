#include "views/ExtensionPageContent.h"

#include <fmt/format.h>

namespace blankwell {

ExtensionPageContent extensionPageContent(std::string_view shortcut) {
    return {
        .symbol = "puzzlepiece.extension",
        .title = "Creating Files From Your File Manager",
        .introduction = {"Right-click an empty spot in a folder, or a folder itself, and choose "
                         "**Create File** and a type. The new file appears right there."},
        .otherWays = {"These ways work in every folder, too:"},
        .rows =
            {
                {"keyboard", fmt::format("Press **{}** to open Quick Create, and choose **Finder "
                                         "Folder** to create in the file manager window in front.",
                                         shortcut)},
                {"terminal",
                 "In a terminal, **blankwell create md** creates a Markdown file in the current "
                 "folder, and **blankwell create md --front** in the file manager window in "
                 "front. **blankwell types** lists all types, and **blankwell menus** the file "
                 "managers."},
                {"bolt.fill",
                 "Where the desktop gives programs no shortcuts, let one of its own run "
                 "**blankwell quick-create**."},
            },
    };
}

} // namespace blankwell
