#include "views/ExtensionPageView.h"

#include "settings/AppSettings.h"
#include "support/FakeInstallation.h"
#include "support/FakeLog.h"
#include "support/FakeUserDefaults.h"
#include "views/CreationGuideView.h"
#include "views/FileManagerMenusModel.h"
#include "views/FileManagerMenusView.h"
#include "widgets/ReadTexts.h"
#include "widgets/Switch.h"
#include "widgets/WidgetTest.h"

namespace blankwell {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using enum QAccessible::Role;
using enum FileManager;

struct ExtensionPageViewTest : WidgetTest {
    ExtensionPageViewTest() {
        page.resize(580, 720);
        show(page);
    }

    std::vector<Switch*> switches() {
        auto found = page.findChildren<Switch*>();
        found.removeIf([](const Switch* toggle) { return !toggle->isVisible(); });
        return {found.begin(), found.end()};
    }

    std::vector<std::string> labels() { return readTexts(page, StaticText); }

    FakeUserDefaults defaults;
    FakeLog log;
    AppSettings settings{defaults, log};
    FakeInstallation installation;
    FileManagerMenusModel menus{installation};
    ExtensionPageView page{theme, settings, menus};
};

TEST_F(ExtensionPageViewTest, TheSwitchesShowWhatThereIs) {
    ASSERT_THAT(switches(), SizeIs(2));
    EXPECT_EQ(accessibleName(*switches()[0]), "Dolphin");
    EXPECT_TRUE(switches()[0]->isChecked());
    EXPECT_EQ(accessibleName(*switches()[1]), "Thunar");
    EXPECT_FALSE(switches()[1]->isChecked());
    EXPECT_THAT(installation.turned, IsEmpty());
}

TEST_F(ExtensionPageViewTest, ItReadsFromTopToBottom) {
    EXPECT_THAT(readTexts(page, Heading),
                ElementsAre("Creating Files From Your File Manager", "File Managers",
                            "Where Create File Appears"));
    EXPECT_THAT(readTexts(page, ListItem), ElementsAre("Dolphin", "Thunar"));
    EXPECT_THAT(readTexts(page, CheckBox), ElementsAre("Dolphin", "Thunar"));
    EXPECT_LT(page.findChild<FileManagerMenusView*>()->y(),
              page.findChild<CreationGuideView*>()->y());
}

TEST_F(ExtensionPageViewTest, ASwitchTurnsTheMenuByPointerAndByKeyboard) {
    QTest::mouseClick(switches()[0], Qt::LeftButton);
    EXPECT_FALSE(installation.menus[dolphin]);
    QTest::keyClick(switches()[1], Qt::Key_Space);
    EXPECT_TRUE(installation.menus[thunar]);
    EXPECT_THAT(labels(), Contains("Takes effect when Thunar is started again."));
    EXPECT_EQ(accessible(*switches()[1]).text(QAccessible::Description),
              "Takes effect when Thunar is started again.");
    EXPECT_THAT(installation.turned, SizeIs(2));
}

TEST_F(ExtensionPageViewTest, TabLeadsThroughTheSwitches) {
    switches()[0]->setFocus(Qt::TabFocusReason);
    QTest::keyClick(&page, Qt::Key_Tab);
    EXPECT_TRUE(switches()[1]->hasFocus());
    QTest::keyClick(&page, Qt::Key_Tab);
    EXPECT_TRUE(switches()[0]->hasFocus());
}

TEST_F(ExtensionPageViewTest, AFailureTurnsTheSwitchBackAndIsToldBesideIt) {
    installation.failWith = SystemError{SystemError::Domain::posix, 28, "The disk is full."};
    QTest::mouseClick(switches()[1], Qt::LeftButton);
    EXPECT_FALSE(switches()[1]->isChecked());
    EXPECT_THAT(labels(), Contains("The disk is full."));
    EXPECT_THAT(installation.turned, SizeIs(1));
}

TEST_F(ExtensionPageViewTest, TheSwitchesFollowWhatOthersChange) {
    installation.menus[thunar] = true;
    menus.refresh();
    EXPECT_TRUE(switches()[1]->isChecked());
    EXPECT_THAT(installation.turned, IsEmpty());
    installation.menus[caja] = false;
    menus.refresh();
    EXPECT_THAT(readTexts(page, CheckBox), ElementsAre("Dolphin", "Thunar", "Caja"));
}

TEST_F(ExtensionPageViewTest, WhatIsInstalledMeanwhileIsThereWhenItIsOpenedAgain) {
    page.hide();
    installation.menus[nemo] = true;
    show(page);
    EXPECT_THAT(readTexts(page, CheckBox), ElementsAre("Dolphin", "Thunar", "Nemo"));
}

TEST_F(ExtensionPageViewTest, ASwitchMayTakeItsRowAway) {
    installation.menus.erase(dolphin);
    QTest::mouseClick(switches()[0], Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_THAT(readTexts(page, CheckBox), ElementsAre("Thunar"));
}

TEST_F(ExtensionPageViewTest, WhatCannotBeSwitchedSaysWhy) {
    installation.withoutPackage = {nautilus};
    menus.refresh();
    ASSERT_THAT(switches(), SizeIs(3));
    EXPECT_FALSE(switches()[0]->isEnabled());
    EXPECT_THAT(labels(), Contains("It needs the package python3-nautilus."));
}

TEST_F(ExtensionPageViewTest, WithoutAFileManagerThereIsAText) {
    installation.menus.clear();
    menus.refresh();
    EXPECT_THAT(switches(), IsEmpty());
    EXPECT_THAT(labels(), Contains(HasSubstr("is installed: Files (Nautilus)")));
}

TEST_F(ExtensionPageViewTest, ItTellsTheShortcutOfTheMoment) {
    EXPECT_THAT(labels(), Contains(HasSubstr("Press ⌃ + ⌥ + N to open Quick Create, and")));
    settings.quickCreateShortcut.set({.keyCode = 46, .carbonModifiers = 0x1800});
    EXPECT_THAT(labels(), Contains(HasSubstr("Press ⌃ + ⌥ + M to open Quick Create, and")));
}

} // namespace
} // namespace blankwell
