#include "views/HelpContent.h"

#include "base/Overloaded.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using testing::ElementsAre;
using Lines = std::vector<std::string>;

Lines linesOf(const HelpElement& element) {
    return std::visit(
        Overloaded{
            [](const GuideParagraph& paragraph) -> Lines { return {paragraph.text}; },
            [](const HelpLocationRow& row) -> Lines { return {row.icon, row.title, row.text}; },
            [](const HelpStep& step) -> Lines {
                return {std::to_string(step.number), step.title, step.text};
            },
            [](const HelpHeading& heading) -> Lines { return {heading.title}; },
            [](const HelpFileTypeGroup& group) {
                Lines lines{group.title};
                for (const auto& type : group.types) {
                    lines.push_back(type.displayName);
                }
                return lines;
            },
        },
        element);
}

/// Everything that the window shows, in its order.
Lines transcript(const HelpContent& help) {
    Lines all{help.header.symbol, help.header.title, help.header.text, help.header.version};
    const auto append = [&](const HelpElement& element) {
        const auto lines = linesOf(element);
        all.insert(all.end(), lines.begin(), lines.end());
    };
    for (const auto& way : help.ways) {
        append(way);
    }
    for (const auto& card : help.cards) {
        all.insert(all.end(), {card.title, card.icon});
        for (const auto& element : card.content) {
            append(element);
        }
    }
    return all;
}

TEST(HelpContentTest, ShowsTheseTextsInThisOrder) {
    const Lines expected{
        "doc.badge.plus",
        "Blankwell+ Help",
        "Create new blank files from Finder, the menu bar, or a keyboard shortcut.",
        "Version 1.2",
        "filemenu.and.cursorarrow",
        "Right-click in Finder",
        "In Dropbox, Downloads, and your own folders, right-click and choose Create File. macOS "
        "doesn't allow this menu in OneDrive, Google Drive, iCloud Drive, Desktop, or Documents — "
        "use the toolbar button or shortcut there.",
        "macwindow.on.rectangle",
        "Finder toolbar button",
        "Add the Create File button to the Finder toolbar (View ▸ Customize Toolbar). Unlike the "
        "right-click menu, it works in every folder — including cloud and system folders.",
        "keyboard",
        "Quick Create shortcut",
        "Press your Quick Create shortcut to open the file picker, search by type or extension, "
        "and choose the destination. Works in every folder, with no setup.",
        "menubar.rectangle",
        "Menu bar & file types",
        "Create from the Blankwell+ menu bar icon too. Turn file types on or off in the main "
        "window — every menu follows the enabled list.",
        "Where Create File Works",
        "square.grid.2x2",
        "Apple limits the Finder right-click menu to ordinary folders. Blankwell+ gives you three "
        "ways to create files so you're covered everywhere:",
        "checkmark.circle.fill",
        "Right-click menu",
        "Dropbox, Downloads, and folders you own (your home folder and its regular subfolders).",
        "macwindow.on.rectangle",
        "Finder toolbar button — works everywhere",
        "OneDrive, Google Drive, iCloud Drive, Desktop, and Documents won't show the right-click "
        "menu (macOS reserves those for the system and cloud providers). The toolbar button is "
        "unaffected and works in all of them.",
        "keyboard",
        "Quick Create shortcut — works everywhere",
        "The keyboard shortcut and menu bar icon create through the app, so they work in every "
        "folder with no Finder setup.",
        "Add the Finder toolbar button (one time)",
        "1",
        "Open Customize Toolbar",
        "In Finder, choose View ▸ Customize Toolbar… (or right-click the toolbar and choose "
        "Customize Toolbar).",
        "2",
        "Drag in Create File",
        "Find the Create File button in the sheet and drag it onto the toolbar, then click Done.",
        "3",
        "Click it in any folder",
        "Open any folder — including OneDrive, iCloud Drive, or Desktop — click Create File in the "
        "toolbar, and choose a file type.",
        "Supported Files",
        "doc.badge.plus",
        "Plain Text",
        "Text",
        "Markdown",
        "Rich Text",
        "CSV",
        "Code",
        "JSON",
        "YAML",
        "XML",
        "HTML",
        "CSS",
        "JavaScript",
        "Shell Script",
        "Python",
        "Swift",
        "Office",
        "Word Document",
        "Excel Spreadsheet",
        "PowerPoint Presentation",
        "Finder Extension Troubleshooting",
        "puzzlepiece.extension",
        "1",
        "Enable the extension",
        "Open System Settings, go to Login Items & Extensions, then enable Blankwell+ Finder "
        "Extension under Finder extensions.",
        "2",
        "Restart Finder if the menu is missing",
        "If Finder was already open, relaunch Finder or log out and back in so macOS loads the "
        "extension.",
        "3",
        "Use a real folder target",
        "Right-click in a Finder folder background or on an item inside a folder. If Blankwell+ "
        "cannot read the target, it falls back to the Desktop.",
        "Folder Access",
        "folder.badge.gearshape",
        "Because Blankwell+ is sandboxed, macOS asks permission before it writes to a folder. You "
        "grant a folder once and Blankwell+ remembers it.",
        "1",
        "Grant your home folder once",
        "In the main window, use Folder Access ▸ Grant Home Folder. Blankwell+ stores a secure "
        "bookmark and reuses it for folders you own, including Desktop, Documents, and Downloads.",
        "2",
        "Add cloud folders",
        "Use Folder Access ▸ Add Cloud Folders to grant Dropbox, OneDrive, Google Drive, or iCloud "
        "Drive. Granting a cloud folder once covers all of its subfolders — you won't be asked "
        "again.",
        "3",
        "Add external volumes separately",
        "External drives and mounted volumes live outside your home folder. Add those volume roots "
        "from Folder Access when you want to create files there.",
        "4",
        "First create may prompt once",
        "The first time you create in a folder Blankwell+ hasn't been granted, it asks for access, "
        "then remembers it for next time.",
        "File Naming",
        "textformat",
        "New files start as Untitled with the matching extension. If a file already exists, "
        "Blankwell+ follows Finder-style numbering such as Untitled 2, Untitled 3, and so on.",
        "Uninstalling",
        "trash",
        "1",
        "Start the uninstaller",
        "Choose Uninstall Blankwell+ from the main window, the Blankwell+ app menu, or the "
        "Blankwell+ menu bar extra.",
        "2",
        "Confirm the warning",
        "The confirmation explains that the app will be moved to the Trash, saved Blankwell+ "
        "settings will be removed, and Finder will restart.",
        "3",
        "Let Blankwell+ clean up",
        "Blankwell+ unregisters the Quick Create shortcut, restarts Finder to unload the Finder "
        "extension, moves the app bundle to the Trash, removes saved settings, then quits.",
        "4",
        "Empty the Trash when ready",
        "The app remains recoverable in the Trash until you empty it. Files you created with "
        "Blankwell+ are never deleted by the uninstaller.",
        "If uninstall cannot finish",
        "Quit Blankwell+, move Blankwell+ from Applications to the Trash manually, then restart "
        "Finder or restart your Mac. This unloads the embedded Finder extension after the app "
        "bundle is gone."};
    EXPECT_EQ(transcript(helpContent("Version 1.2")), expected);
}

TEST(HelpContentTest, HasFourWaysAndSixCards) {
    const auto help = helpContent("");
    EXPECT_EQ(help.ways.size(), 4U);
    EXPECT_THAT(help.cards,
                ElementsAre(testing::Field(&HelpCard::title, "Where Create File Works"),
                            testing::Field(&HelpCard::title, "Supported Files"),
                            testing::Field(&HelpCard::title, "Finder Extension Troubleshooting"),
                            testing::Field(&HelpCard::title, "Folder Access"),
                            testing::Field(&HelpCard::title, "File Naming"),
                            testing::Field(&HelpCard::title, "Uninstalling")));
}

TEST(HelpContentTest, WhatFollowsTheStepsHasAHeading) {
    const auto help = helpContent("");
    EXPECT_EQ(std::get<HelpHeading>(help.cards.at(0).content.at(4)).title,
              "Add the Finder toolbar button (one time)");
    EXPECT_EQ(std::get<HelpHeading>(help.cards.at(5).content.at(4)).title,
              "If uninstall cannot finish");
}

} // namespace
} // namespace blankwell
