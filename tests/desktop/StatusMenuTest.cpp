#include "desktop/ApplicationFixture.h"
#include "desktop/Desktop.h"
#include "desktop/ShownStatusItem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace blankwell {
namespace {

using testing::HasSubstr;

/// The submenus and the rest of the menu with all types switched on, in their order.
constexpr auto wholeMenu = R"(* Quick Create...
* Create on Desktop
  (Plain Text)
  * Text
  * Markdown
  * Rich Text
  * CSV
  --
  (Code)
  * JSON
  * YAML
  * XML
  * HTML
  * CSS
  * JavaScript
  * Shell Script
  * Python
  * Swift
  --
  (Office)
  * Word Document
  * Excel Spreadsheet
  * PowerPoint Presentation
* Create in Finder Folder
  (Plain Text)
  * Text
  * Markdown
  * Rich Text
  * CSV
  --
  (Code)
  * JSON
  * YAML
  * XML
  * HTML
  * CSS
  * JavaScript
  * Shell Script
  * Python
  * Swift
  --
  (Office)
  * Word Document
  * Excel Spreadsheet
  * PowerPoint Presentation
--
* Open Blankwell+
--
* Uninstall Blankwell+...
* Quit Blankwell+
)";

/// The menu whose submenus both hold `items`.
std::string menuWith(const std::string& items) {
    return "* Quick Create...\n* Create on Desktop\n" + items + "* Create in Finder Folder\n" +
           items + "--\n* Open Blankwell+\n--\n* Uninstall Blankwell+...\n* Quit Blankwell+\n";
}

/// Qt never frees what it has learnt of the bar's D-Bus interface; a sanitized application would
/// not end with 0 for that. Only whole stacks tell that leak from others.
void forgiveQtItsLeak() {
    const auto suppressions = makeFile("suppressions").path();
    std::ofstream(suppressions) << "leak:QDBusMetaObject::createMetaObject\n";
    ::setenv("ASAN_OPTIONS", "fast_unwind_on_malloc=0", 1);
    ::setenv("LSAN_OPTIONS", ("print_suppressions=0:suppressions=" + suppressions).c_str(), 1);
}

struct StatusMenuTest : ApplicationFixture {
    StatusMenuTest() { settings->appPresence.set(AppPresence::menuBarOnly); }

    /// The application's item in the bar.
    static ShownStatusItem item() {
        std::optional<ShownStatusItem> found;
        if (!eventually([&] { return (found = ShownStatusItem::find()).has_value(); })) {
            throw std::runtime_error("the bar has no item");
        }
        return *found;
    }

    /// Whether the menu comes to be `expected`.
    static void expectMenu(const std::string& expected) {
        const auto shown = item();
        std::string menu;
        EXPECT_TRUE(eventually([&] { return (menu = shown.menu()) == expected; })) << menu;
    }

    static FileUrl onDesktop(std::string_view name) {
        return desktopHome().appending("Desktop").appending(name);
    }

    Program bar{{"xfce4-panel", "--disable-wm-check"}};
};

TEST_F(StatusMenuTest, TheBarGetsTheWholeMenuAndTheToolTip) {
    startInBackground();
    expectMenu(wholeMenu);
    EXPECT_EQ(item().toolTip(), "Blankwell+");
}

TEST_F(StatusMenuTest, WhatAnotherProcessSetsIsInTheMenuAtOnce) {
    startInBackground();
    expectMenu(wholeMenu);
    settings->enabledFileTypeIDs.set({"txt", "md", "py", "docx"});
    expectMenu(menuWith("  (Plain Text)\n  * Text\n  * Markdown\n  --\n  (Code)\n  * Python\n"
                        "  --\n  (Office)\n  * Word Document\n"));
    settings->setEnabled(false, "py");
    expectMenu(menuWith("  (Plain Text)\n  * Text\n  * Markdown\n  --\n"
                        "  (Office)\n  * Word Document\n"));
    settings->fileTypeOrder.set({"docx", "md", "txt"});
    expectMenu(menuWith("  (Plain Text)\n  * Markdown\n  * Text\n  --\n"
                        "  (Office)\n  * Word Document\n"));
    settings->enabledFileTypeIDs.set({});
    expectMenu(menuWith(""));
}

TEST_F(StatusMenuTest, TheItemIsThereExactlyWhileThePresenceWantsIt) {
    startInBackground();
    EXPECT_TRUE(eventually([] { return ShownStatusItem::find().has_value(); }));
    settings->appPresence.set(AppPresence::dockOnly);
    EXPECT_TRUE(eventually([] { return !ShownStatusItem::find(); }));
    settings->appPresence.set(AppPresence::menuBarOnly);
    expectMenu(wholeMenu);
}

TEST_F(StatusMenuTest, CreatingOnTheDesktopMakesOneFileForEachChoice) {
    startInBackground();
    item().choose({"Create on Desktop", "Markdown"});
    EXPECT_TRUE(fileAppears(onDesktop("Untitled.md")));
    item().choose({"Create on Desktop", "Markdown"});
    EXPECT_TRUE(fileAppears(onDesktop("Untitled 2.md")));
    item().choose({"Create on Desktop", "Word Document"});
    EXPECT_TRUE(fileAppears(onDesktop("Untitled.docx")));
}

TEST_F(StatusMenuTest, CreatingInTheFinderFolderMakesTheFileWhereNautilusIs) {
    const auto folder = makeFolder("Pröjects #1");
    const Program nautilus({"nautilus", folder.path()});
    ASSERT_TRUE(windowAppears("Pröjects #1"));
    startInBackground();
    ASSERT_TRUE(bringToFront("Pröjects #1"));
    item().choose({"Create in Finder Folder", "JSON"});
    EXPECT_TRUE(fileAppears(folder.appending("Untitled.json")));
}

TEST_F(StatusMenuTest, CreatingInTheFinderFolderMakesTheFileWhereThunarIs) {
    outputOf({"xfconf-query", "--channel", "thunar", "--property",
              "/misc-full-path-in-window-title", "--create", "--type", "bool", "--set", "true"});
    const auto folder = makeFolder("Thunar's");
    const Program thunar({"thunar", folder.path()});
    const auto title = folder.path() + " - Thunar";
    ASSERT_TRUE(windowAppears(title));
    startInBackground();
    ASSERT_TRUE(bringToFront(title));
    item().choose({"Create in Finder Folder", "Text"});
    EXPECT_TRUE(fileAppears(folder.appending("Untitled.txt")));
}

TEST_F(StatusMenuTest, CreatingInTheFinderFolderWithoutOneMakesTheFileOnTheDesktop) {
    startInBackground();
    item().choose({"Create in Finder Folder", "CSV"});
    EXPECT_TRUE(fileAppears(onDesktop("Untitled.csv")));
}

TEST_F(StatusMenuTest, PanelAndMainWindowComeUp) {
    startInBackground();
    item().choose({"Quick Create..."});
    EXPECT_TRUE(windowAppears("Create File"));
    item().choose({"Open Blankwell+"});
    EXPECT_TRUE(windowAppears("Blankwell+"));
    EXPECT_THAT(statesOf("Blankwell+"), HasSubstr("_NET_WM_STATE_SKIP_TASKBAR"));
}

TEST_F(StatusMenuTest, QuittingEndsInOrderAndTakesTheItemAway) {
    forgiveQtItsLeak();
    startInBackground();
    item().choose({"Quit Blankwell+"});
    EXPECT_EQ(application->exitStatus(), 0);
    EXPECT_TRUE(eventually([] { return !ShownStatusItem::find(); }));
}

} // namespace
} // namespace blankwell
