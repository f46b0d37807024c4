#include "views/MainWindowContent.h"

#include "support/FakeBundle.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using testing::ElementsAre;

TEST(MainWindowContentTest, HasTheseTexts) {
    EXPECT_EQ(mainWindowTexts,
              (MainWindowTexts{"doc.badge.plus", "Blankwell+",
                               "The missing New File command for macOS.", "App Presence"}));
}

TEST(MainWindowContentTest, TheVersionIsTheBundles) {
    FakeBundle bundle;
    EXPECT_EQ(versionText(bundle), "");
    bundle.info["CFBundleShortVersionString"] = "1.2.3";
    EXPECT_EQ(versionText(bundle), "Version 1.2.3");
}

TEST(MainWindowContentTest, ThePickerOffersThesePresences) {
    EXPECT_THAT(presenceSegments(),
                ElementsAre(PresenceSegment{AppPresence::dockAndMenuBar, "Dock + Menu",
                                            "Show Blankwell+ in the Dock and the menu bar."},
                            PresenceSegment{AppPresence::dockOnly, "Dock",
                                            "Show Blankwell+ in the Dock only."},
                            PresenceSegment{AppPresence::menuBarOnly, "Menu Bar",
                                            "Keep Blankwell+ available from the menu bar only."}));
}

TEST(MainWindowContentTest, TheSectionsFollowEachOtherInThisOrder) {
    using enum MainWindowSection;
    EXPECT_THAT(allMainWindowSections, ElementsAre(header, appPresence, fileTypes, shortcuts,
                                                   folderAccess, finderExtension, uninstall));
}

} // namespace
} // namespace blankwell
