#include "shell/BundleInstallation.h"

#include "settings/AppSettings.h"
#include "support/FakeBundleStore.h"
#include "support/FakeLog.h"
#include "support/FakeRegistrations.h"
#include "support/FakeUserDefaults.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

struct BundleInstallationTest : testing::Test {
    BundleInstallationTest() {
        programs.names = {"caja"};
        bundles.add(bundle);
    }

    BundleInstallation installationOf(const std::optional<FileUrl>& running,
                                      InstallationForm form = InstallationForm::ownBundle) {
        const auto programFolder =
            running ? running->appending("Contents/Linux") : FileUrl("/build/bin");
        return {{settings, defaults, list, registrations, programs, bundles, log},
                {programFolder, running, form, {"@BLANKWELL_APPLICATION_PATH@", ""}},
                {FileUrl("/h"), FileUrl("/h/data"), FileUrl("/h/config")},
                FileUrl("/usual")};
    }

    std::string registeredProgram() {
        const auto found = registrations.held.find("application");
        return found == registrations.held.end()
                   ? "(none)"
                   : std::get<RegisteredFile>(found->second[0]).contents;
    }

    FakeUserDefaults defaults;
    FakeUserDefaults list;
    FakeLog log;
    AppSettings settings{defaults, log};
    FakeRegistrations registrations;
    FakeInstalledPrograms programs;
    FakeBundleStore bundles;
    FileUrl bundle{"/d/B.app"};
};

TEST_F(BundleInstallationTest, CopiesTheBundleAndRegistersTheCopy) {
    auto installation = installationOf(bundle);
    EXPECT_EQ(installation.install(std::nullopt), FileUrl("/h/Applications/B.app"));
    EXPECT_EQ(registeredProgram(), "\"/h/Applications/B.app/Contents/Linux/blankwell-plus\"");
    EXPECT_THAT(std::get<RegisteredFile>(registrations.held["menu.caja"][0]).contents,
                HasSubstr("'/h/Applications/B.app/Contents/Linux/blankwell' open"));
    EXPECT_FALSE(installation.isRegistered());
}

TEST_F(BundleInstallationTest, TakesAnotherFolder) {
    EXPECT_EQ(installationOf(bundle).install(FileUrl("/x")), FileUrl("/x/B.app"));
    EXPECT_EQ(registeredProgram(), "\"/x/B.app/Contents/Linux/blankwell-plus\"");
}

TEST_F(BundleInstallationTest, ABundleThatIsNotCopiedIsNotRegistered) {
    bundles.failWith = SystemError{SystemError::Domain::posix, 28, "The disk is full."};
    EXPECT_FALSE(installationOf(bundle).install(std::nullopt));
    EXPECT_EQ(registeredProgram(), "(none)");
    EXPECT_THAT(registrations.groups(), IsEmpty());
    EXPECT_THAT(list.values, IsEmpty());
}

TEST_F(BundleInstallationTest, OutsideOfABundleThereIsNothingToInstall) {
    const auto installed = installationOf(std::nullopt).install(std::nullopt);
    ASSERT_FALSE(installed);
    EXPECT_EQ(installed.error().description,
              "This program is not in a bundle, so there is nothing to install.");
}

TEST_F(BundleInstallationTest, UnregisteringTakesEveryGroupAway) {
    auto installation = installationOf(bundle);
    ASSERT_TRUE(installation.install(std::nullopt));
    bundles.remove(bundle);
    ASSERT_TRUE(installation.unregister());
    EXPECT_THAT(registrations.held, IsEmpty());
    EXPECT_THAT(list.values, IsEmpty());
}

TEST_F(BundleInstallationTest, TheFoldersThatTheBundleStandsInAreKnownUntilItHasGone) {
    ASSERT_TRUE(installationOf(bundle).install(std::nullopt));
    const FileUrl installed("/h/Applications/B.app");
    EXPECT_THAT(registrations.held["place"], ElementsAre(Registration(RegisteredPlace{installed})));
    ASSERT_TRUE(installationOf(installed).unregister());
    EXPECT_THAT(registrations.groups(), ElementsAre("place"));
    bundles.remove(installed);
    ASSERT_TRUE(installationOf(installed).unregister());
    EXPECT_THAT(registrations.groups(), IsEmpty());
}

TEST_F(BundleInstallationTest, AnInstalledBundleThatWasMovedIsRegisteredWhereItIs) {
    ASSERT_TRUE(installationOf(bundle).install(std::nullopt));
    const FileUrl moved("/h/moved/B.app");
    bundles.move(FileUrl("/h/Applications/B.app"), moved);
    EXPECT_EQ(installationOf(moved).install(std::nullopt), moved);
    EXPECT_EQ(registeredProgram(), "\"/h/moved/B.app/Contents/Linux/blankwell-plus\"");
    EXPECT_FALSE(bundles.stands(FileUrl("/h/Applications/B.app")));
}

TEST_F(BundleInstallationTest, AMovedBundleIsCopiedWhereThatIsAskedFor) {
    ASSERT_TRUE(installationOf(bundle).install(std::nullopt));
    const FileUrl moved("/h/moved/B.app");
    bundles.move(FileUrl("/h/Applications/B.app"), moved);
    EXPECT_EQ(installationOf(moved).install(FileUrl("/x")), FileUrl("/x/B.app"));
}

TEST_F(BundleInstallationTest, ANewBundleIsCopiedThoughTheOldOneIsGone) {
    ASSERT_TRUE(installationOf(bundle).install(std::nullopt));
    bundles.remove(FileUrl("/h/Applications/B.app"));
    const FileUrl fresh("/download/B.app");
    bundles.add(fresh);
    EXPECT_EQ(installationOf(fresh).install(std::nullopt), FileUrl("/h/Applications/B.app"));
}

TEST_F(BundleInstallationTest, AStartMendsAMissingRegistration) {
    auto installation = installationOf(bundle);
    installation.mend();
    EXPECT_TRUE(installation.isRegistered());
    registrations.held.clear();
    installation.mend();
    EXPECT_EQ(registeredProgram(), "\"/d/B.app/Contents/Linux/blankwell-plus\"");
    EXPECT_THAT(registrations.groups(), ElementsAre("application", "menu.caja"));
}

TEST_F(BundleInstallationTest, AStartOfAMovedBundleMendsItsRegistration) {
    installationOf(bundle).mend();
    bundles.move(bundle, FileUrl("/moved/B.app"));
    installationOf(FileUrl("/moved/B.app")).mend();
    EXPECT_EQ(registeredProgram(), "\"/moved/B.app/Contents/Linux/blankwell-plus\"");
}

TEST_F(BundleInstallationTest, AStartTakesNothingFromAnotherBundle) {
    ASSERT_TRUE(installationOf(bundle).install(std::nullopt));
    auto other = installationOf(FileUrl("/download/B.app"));
    other.mend();
    other.refreshMenus();
    EXPECT_EQ(registeredProgram(), "\"/h/Applications/B.app/Contents/Linux/blankwell-plus\"");
    EXPECT_FALSE(other.isRegistered());
}

TEST_F(BundleInstallationTest, AStartInABuildTreeRegistersNothing) {
    auto installation = installationOf(std::nullopt);
    installation.mend();
    installation.refreshMenus();
    EXPECT_THAT(registrations.held, IsEmpty());
}

TEST_F(BundleInstallationTest, WhatAPackageBroughtGetsItsMenusOnly) {
    installationOf(bundle, InstallationForm::package).mend();
    EXPECT_THAT(registrations.groups(), ElementsAre("menu.caja"));
    EXPECT_THAT(list.values, IsEmpty());
}

TEST_F(BundleInstallationTest, MenusFollowTheSettings) {
    auto installation = installationOf(bundle);
    installation.mend();
    settings.enabledFileTypeIDs.set({"md"});
    installation.refreshMenus();
    EXPECT_THAT(registrations.held["menu.caja"], SizeIs(1));
}

TEST_F(BundleInstallationTest, AFailureToMendIsLogged) {
    registrations.failWith = SystemError{SystemError::Domain::posix, 28, "The disk is full."};
    installationOf(bundle).mend();
    EXPECT_THAT(log.lines, testing::Not(IsEmpty()));
}

} // namespace
} // namespace blankwell
