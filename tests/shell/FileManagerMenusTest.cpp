#include "shell/FileManagerMenus.h"

#include "settings/AppSettings.h"
#include "support/FakeLog.h"
#include "support/FakeRegistrations.h"
#include "support/FakeUserDefaults.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using enum FileManager;

struct FileManagerMenusTest : testing::Test {
    FileManagerMenusTest() { programs.names = {"nautilus", "thunar", "caja"}; }

    std::vector<std::string> descriptions() const {
        std::vector<std::string> texts;
        for (const auto& state : menus.states()) {
            texts.push_back(std::string(infoOf(state.manager).id) + ": " + description(state));
        }
        return texts;
    }

    std::vector<std::string> paths(const std::string& group) {
        std::vector<std::string> paths;
        for (const auto& registration : registrations.held[group]) {
            paths.push_back(std::get<RegisteredFile>(registration).url.path());
        }
        return paths;
    }

    FakeUserDefaults defaults;
    FakeLog log;
    AppSettings settings{defaults, log};
    FakeRegistrations registrations;
    FakeInstalledPrograms programs;
    FileManagerMenus menus{
        {settings, defaults, registrations, programs, log},
        {FileUrl("/data"), FileUrl("/config"), FileUrl("/usual"), FileUrl("/blankwell")}};
};

TEST_F(FileManagerMenusTest, AreOnWhereTheFileManagerIsInstalled) {
    ASSERT_TRUE(menus.refresh());
    EXPECT_THAT(registrations.groups(), ElementsAre("menu.caja", "menu.nautilus", "menu.thunar"));
    EXPECT_THAT(descriptions(),
                ElementsAre("nautilus: on", "dolphin: not installed", "thunar: on",
                            "nemo: not installed", "caja: on", "pcmanfm-qt: not installed"));
}

TEST_F(FileManagerMenusTest, NautilusNeedsItsPackage) {
    programs.takesPython = false;
    ASSERT_TRUE(menus.refresh());
    EXPECT_EQ(descriptions()[0], "nautilus: needs the package python3-nautilus");
    EXPECT_THAT(registrations.groups(), ElementsAre("menu.caja", "menu.thunar"));
    const auto turned = menus.turn(nautilus, true);
    ASSERT_FALSE(turned);
    EXPECT_EQ(turned.error().description, "Files (Nautilus): needs the package python3-nautilus.");
}

TEST_F(FileManagerMenusTest, WhereTheSystemHasAnExtensionThatMakesTheMenu) {
    programs.takesPython = false;
    programs.extended = {"nautilus", "caja", "thunar"};
    ASSERT_TRUE(menus.refresh());
    EXPECT_EQ(descriptions()[0], "nautilus: on");
    EXPECT_THAT(paths("menu.nautilus"), ElementsAre("/data/blankwell-plus/menus/nautilus"));
    EXPECT_THAT(paths("menu.caja"), ElementsAre("/data/blankwell-plus/menus/caja"));
    EXPECT_TRUE(std::holds_alternative<RegisteredActions>(registrations.held["menu.thunar"][0]))
        << "there is no extension of Thunar";
}

TEST_F(FileManagerMenusTest, OnlyWithoutAnExtensionAChangeIsSeenAfterARestart) {
    EXPECT_TRUE(menus.states()[0].mustRestart);
    EXPECT_FALSE(menus.states()[4].mustRestart);
    programs.extended = {"nautilus"};
    EXPECT_FALSE(menus.states()[0].mustRestart);
}

TEST_F(FileManagerMenusTest, WhatTheUserSwitchedOffStaysOff) {
    ASSERT_TRUE(menus.refresh());
    ASSERT_TRUE(menus.turn(thunar, false));
    EXPECT_THAT(registrations.groups(), ElementsAre("menu.caja", "menu.nautilus"));
    ASSERT_TRUE(menus.refresh());
    EXPECT_EQ(descriptions()[2], "thunar: off");
    ASSERT_TRUE(menus.turn(thunar, true));
    ASSERT_TRUE(menus.refresh());
    EXPECT_EQ(descriptions()[2], "thunar: on");
}

TEST_F(FileManagerMenusTest, WhatIsNotInstalledCanBeSwitchedOffBeforehandOnly) {
    const auto turned = menus.turn(dolphin, true);
    ASSERT_FALSE(turned);
    EXPECT_EQ(turned.error().description, "Dolphin: not installed.");
    ASSERT_TRUE(menus.turn(dolphin, false));
    programs.names.insert("dolphin");
    ASSERT_TRUE(menus.refresh());
    EXPECT_EQ(descriptions()[1], "dolphin: off");
}

TEST_F(FileManagerMenusTest, FollowTheSettings) {
    settings.enabledFileTypeIDs.set({"md", "txt"});
    ASSERT_TRUE(menus.refresh());
    EXPECT_THAT(registrations.held["menu.caja"], SizeIs(2));
    settings.enabledFileTypeIDs.set({});
    ASSERT_TRUE(menus.refresh());
    EXPECT_THAT(registrations.groups(), IsEmpty());
}

TEST_F(FileManagerMenusTest, AFileManagerThatIsGoneLosesItsMenu) {
    ASSERT_TRUE(menus.refresh());
    programs.names.erase("caja");
    ASSERT_TRUE(menus.refresh());
    EXPECT_THAT(registrations.groups(), ElementsAre("menu.nautilus", "menu.thunar"));
}

TEST_F(FileManagerMenusTest, FailuresAreLoggedAndTold) {
    registrations.failWith = SystemError{SystemError::Domain::posix, 28, "The disk is full."};
    EXPECT_EQ(menus.refresh().error().description, "The disk is full.");
    EXPECT_THAT(log.lines, SizeIs(6));
    EXPECT_FALSE(menus.turn(caja, false));
}

TEST_F(FileManagerMenusTest, AChoiceThatCannotBeKeptChangesNothing) {
    ASSERT_TRUE(menus.refresh());
    defaults.failWith = SystemError{SystemError::Domain::posix, 28, "The disk is full."};
    EXPECT_FALSE(menus.turn(caja, false));
    EXPECT_EQ(descriptions()[4], "caja: on");
}

} // namespace
} // namespace blankwell
