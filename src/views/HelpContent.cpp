#include "views/HelpContent.h"

#include "filetypes/FileTypeCatalog.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace blankwell {
namespace {

std::vector<HelpLocationRow> ways() {
    return {
        {"filemenu.and.cursorarrow", "Right-click in Finder",
         "In Dropbox, Downloads, and your own folders, right-click and choose Create File. macOS "
         "doesn't allow this menu in OneDrive, Google Drive, iCloud Drive, Desktop, or Documents — "
         "use the toolbar button or shortcut there."},
        {"macwindow.on.rectangle", "Finder toolbar button",
         "Add the Create File button to the Finder toolbar (View ▸ Customize Toolbar). Unlike the "
         "right-click menu, it works in every folder — including cloud and system folders."},
        {"keyboard", "Quick Create shortcut",
         "Press your Quick Create shortcut to open the file picker, search by type or extension, "
         "and choose the destination. Works in every folder, with no setup."},
        {"menubar.rectangle", "Menu bar & file types",
         "Create from the Blankwell+ menu bar icon too. Turn file types on or off in the main "
         "window — every menu follows the enabled list."},
    };
}

HelpCard whereItWorksCard() {
    return {
        .icon = "square.grid.2x2",
        .title = "Where Create File Works",
        .content =
            {
                GuideParagraph{"Apple limits the Finder right-click menu to ordinary folders. "
                               "Blankwell+ gives "
                               "you three ways to create files so you're covered everywhere:"},
                HelpLocationRow{"checkmark.circle.fill", "Right-click menu",
                                "Dropbox, Downloads, and folders you own (your home folder and its "
                                "regular subfolders)."},
                HelpLocationRow{
                    "macwindow.on.rectangle", "Finder toolbar button — works everywhere",
                    "OneDrive, Google Drive, iCloud Drive, Desktop, and Documents won't show the "
                    "right-click menu (macOS reserves those for the system and cloud providers). "
                    "The toolbar button is unaffected and works in all of them."},
                HelpLocationRow{
                    "keyboard", "Quick Create shortcut — works everywhere",
                    "The keyboard shortcut and menu bar icon create through the app, so they work "
                    "in every folder with no Finder setup."},
                HelpHeading{"Add the Finder toolbar button (one time)"},
                HelpStep{1, "Open Customize Toolbar",
                         "In Finder, choose View ▸ Customize Toolbar… (or right-click the toolbar "
                         "and choose Customize Toolbar)."},
                HelpStep{2, "Drag in Create File",
                         "Find the Create File button in the sheet and drag it onto the toolbar, "
                         "then click Done."},
                HelpStep{3, "Click it in any folder",
                         "Open any folder — including OneDrive, iCloud Drive, or Desktop — click "
                         "Create File in the toolbar, and choose a file type."},
            },
    };
}

HelpFileTypeGroup group(FileTypeCategory category) {
    HelpFileTypeGroup group{.title = std::string(rawValue(category)), .types = {}};
    std::ranges::copy_if(FileTypeCatalog::builtInTypes(), std::back_inserter(group.types),
                         [&](const auto& type) { return type.category == category; });
    return group;
}

HelpCard supportedFilesCard() {
    HelpCard card{.icon = "doc.badge.plus", .title = "Supported Files", .content = {}};
    std::ranges::transform(allFileTypeCategories, std::back_inserter(card.content), group);
    return card;
}

HelpCard troubleshootingCard() {
    return {
        .icon = "puzzlepiece.extension",
        .title = "Finder Extension Troubleshooting",
        .content =
            {
                HelpStep{1, "Enable the extension",
                         "Open System Settings, go to Login Items & Extensions, then enable "
                         "Blankwell+ Finder Extension under Finder extensions."},
                HelpStep{2, "Restart Finder if the menu is missing",
                         "If Finder was already open, relaunch Finder or log out and back in so "
                         "macOS loads the extension."},
                HelpStep{3, "Use a real folder target",
                         "Right-click in a Finder folder background or on an item inside a folder. "
                         "If Blankwell+ cannot read the target, it falls back to the Desktop."},
            },
    };
}

HelpCard folderAccessCard() {
    return {
        .icon = "folder.badge.gearshape",
        .title = "Folder Access",
        .content =
            {
                GuideParagraph{
                    "Because Blankwell+ is sandboxed, macOS asks permission before it writes to a "
                    "folder. You grant a folder once and Blankwell+ remembers it."},
                HelpStep{1, "Grant your home folder once",
                         "In the main window, use Folder Access ▸ Grant Home Folder. Blankwell+ "
                         "stores a secure bookmark and reuses it for folders you own, including "
                         "Desktop, Documents, and Downloads."},
                HelpStep{2, "Add cloud folders",
                         "Use Folder Access ▸ Add Cloud Folders to grant Dropbox, OneDrive, Google "
                         "Drive, or iCloud Drive. Granting a cloud folder once covers all of its "
                         "subfolders — you won't be asked again."},
                HelpStep{3, "Add external volumes separately",
                         "External drives and mounted volumes live outside your home folder. Add "
                         "those volume roots from Folder Access when you want to create files "
                         "there."},
                HelpStep{4, "First create may prompt once",
                         "The first time you create in a folder Blankwell+ hasn't been granted, it "
                         "asks for access, then remembers it for next time."},
            },
    };
}

HelpCard fileNamingCard() {
    return {
        .icon = "textformat",
        .title = "File Naming",
        .content = {GuideParagraph{
            "New files start as Untitled with the matching extension. If a file already exists, "
            "Blankwell+ follows Finder-style numbering such as Untitled 2, Untitled 3, and so "
            "on."}},
    };
}

HelpCard uninstallingCard() {
    return {
        .icon = "trash",
        .title = "Uninstalling",
        .content =
            {
                HelpStep{1, "Start the uninstaller",
                         "Choose Uninstall Blankwell+ from the main window, the Blankwell+ app "
                         "menu, or the Blankwell+ menu bar extra."},
                HelpStep{2, "Confirm the warning",
                         "The confirmation explains that the app will be moved to the Trash, saved "
                         "Blankwell+ settings will be removed, and Finder will restart."},
                HelpStep{3, "Let Blankwell+ clean up",
                         "Blankwell+ unregisters the Quick Create shortcut, restarts Finder to "
                         "unload the Finder extension, moves the app bundle to the Trash, removes "
                         "saved settings, then quits."},
                HelpStep{4, "Empty the Trash when ready",
                         "The app remains recoverable in the Trash until you empty it. Files you "
                         "created with Blankwell+ are never deleted by the uninstaller."},
                HelpHeading{"If uninstall cannot finish"},
                GuideParagraph{
                    "Quit Blankwell+, move Blankwell+ from Applications to the Trash manually, "
                    "then restart Finder or restart your Mac. This unloads the embedded Finder "
                    "extension after the app bundle is gone."},
            },
    };
}

} // namespace

HelpContent helpContent(std::string version) {
    return {
        .header =
            {
                .symbol = "doc.badge.plus",
                .title = "Blankwell+ Help",
                .text = "Create new blank files from Finder, the menu bar, or a keyboard shortcut.",
                .version = std::move(version),
            },
        .ways = ways(),
        .cards = {whereItWorksCard(), supportedFilesCard(), troubleshootingCard(),
                  folderAccessCard(), fileNamingCard(), uninstallingCard()},
    };
}

} // namespace blankwell
