#include "views/CreationGuideView.h"

#include "settings/AppSettings.h"
#include "support/FakeLog.h"
#include "support/FakeUserDefaults.h"
#include "widgets/ReadTexts.h"
#include "widgets/WidgetTest.h"

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

struct CreationGuideViewTest : WidgetTest {
    FakeUserDefaults defaults;
    FakeLog log;
    AppSettings settings{defaults, log};
    CreationGuideView guide{theme, settings};
};

TEST_F(CreationGuideViewTest, ItSaysWhereFilesCanBeCreated) {
    using enum QAccessible::Role;
    show(guide);
    EXPECT_THAT(
        readTexts(guide),
        ElementsAre(
            Pair(Heading, "Where Create File Appears"),
            Pair(StaticText, "Right-click → Create File works in Dropbox, Downloads, and your own "
                             "folders."),
            Pair(StaticText,
                 "macOS blocks the right-click menu in OneDrive, Google Drive, iCloud Drive, "
                 "Desktop, and Documents. To create files there, use either:"),
            Pair(StaticText,
                 "Add the Create File button to the Finder toolbar — it works in every folder. In "
                 "Finder, choose View ▸ Customize Toolbar…, then drag the Create File button into "
                 "the toolbar."),
            Pair(StaticText, "Press ⌃ + ⌥ + N to open Quick Create, or use the menu-bar icon.")));
}

TEST_F(CreationGuideViewTest, TheShortcutIsThatOfTheMoment) {
    guide.resize(500, guide.heightForWidth(500));
    show(guide);
    settings.quickCreateShortcut.set({.keyCode = 46, .carbonModifiers = 0x100});
    QCoreApplication::processEvents();
    const auto texts = readTexts(guide);
    ASSERT_EQ(texts.size(), 5U);
    EXPECT_EQ(texts.back().second, "Press ⌘ + M to open Quick Create, or use the menu-bar icon.");
}

TEST_F(CreationGuideViewTest, ItIsAsHighAsItsTextsNeed) {
    for (const int width : {320, 560}) {
        guide.resize(width, guide.heightForWidth(width));
        show(guide);
        EXPECT_THAT(badlyPlacedTexts(guide), IsEmpty());
    }
}

} // namespace
} // namespace blankwell
