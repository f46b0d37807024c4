#include "platform/linux/LinuxInstallationForm.h"

#include "support/ChildProcess.h"
#include "support/FakeSurroundings.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

struct LinuxInstallationFormTest : testing::Test {
    LinuxInstallationFormTest() { folder.addFile("Blankwell+.app/Contents/Info.plist"); }

    FakeEnvironment environment;
    TemporaryFolder folder;
    FileUrl bundle = folder.at("Blankwell+.app");
};

TEST_F(LinuxInstallationFormTest, ABundleOfTheUsersOwnIsReplaceable) {
    EXPECT_EQ(installationForm(bundle, environment), InstallationForm::ownBundle);
}

TEST_F(LinuxInstallationFormTest, ABundleOfSomebodyElseIsNot) {
    std::filesystem::permissions(folder.url().path(), std::filesystem::perms::all);
    withoutPrivilege(
        [&] { EXPECT_EQ(installationForm(bundle, environment), InstallationForm::foreignBundle); });
}

TEST_F(LinuxInstallationFormTest, ABundleInAFolderThatCannotBeWrittenIsNotReplaceable) {
    ASSERT_EQ(::getuid(), 0U) << "needs root";
    ASSERT_EQ(::chown(bundle.path().c_str(), 65534, 65534), 0);
    std::filesystem::permissions(folder.url().path(), std::filesystem::perms(0755));
    withoutPrivilege(
        [&] { EXPECT_EQ(installationForm(bundle, environment), InstallationForm::foreignBundle); });
    std::filesystem::permissions(folder.url().path(), std::filesystem::perms(0777));
    withoutPrivilege(
        [&] { EXPECT_EQ(installationForm(bundle, environment), InstallationForm::ownBundle); });
}

TEST_F(LinuxInstallationFormTest, PackagesBelongToTheSystem) {
    EXPECT_EQ(installationForm(FileUrl("/usr/lib/Blankwell+.app"), environment),
              InstallationForm::package);
}

TEST_F(LinuxInstallationFormTest, WhatAnAdministratorPutThereIsNoPackage) {
    EXPECT_NE(installationForm(FileUrl("/usr/local/Blankwell+.app"), environment),
              InstallationForm::package);
}

TEST_F(LinuxInstallationFormTest, ASandboxIsOneWhateverItHolds) {
    environment.variables["APP_SANDBOX_CONTAINER_ID"] = "app";
    EXPECT_EQ(installationForm(bundle, environment), InstallationForm::sandbox);
}

TEST_F(LinuxInstallationFormTest, WithoutAnInfoPlistOrTheNameOfABundleItIsNone) {
    EXPECT_EQ(installationForm(folder.addFolder("Other.app"), environment),
              InstallationForm::looseProgram);
    folder.addFile("build/Contents/Info.plist");
    EXPECT_EQ(installationForm(folder.at("build"), environment), InstallationForm::looseProgram);
}

} // namespace
} // namespace blankwell
