#include "platform/linux/update/BundleInstallation.h"

#include "support/ChildProcess.h"
#include "support/FakeSurroundings.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

struct BundleInstallationTest : testing::Test {
    BundleInstallationTest() { folder.addFile("Blankwell+.app/Contents/Info.plist"); }

    FakeEnvironment environment;
    TemporaryFolder folder;
    FileUrl bundle = folder.at("Blankwell+.app");
};

TEST_F(BundleInstallationTest, TheBundleHoldsTheFolderOfPrograms) {
    EXPECT_EQ(bundleOfPrograms(bundle.appending("Contents/Linux")), bundle);
}

TEST_F(BundleInstallationTest, ABundleOfTheUsersOwnIsReplaceable) {
    EXPECT_EQ(installationOf(bundle, environment), InstallationForm::ownBundle);
}

TEST_F(BundleInstallationTest, ABundleOfSomebodyElseIsNot) {
    std::filesystem::permissions(folder.url().path(), std::filesystem::perms::all);
    withoutPrivilege(
        [&] { EXPECT_EQ(installationOf(bundle, environment), InstallationForm::foreignBundle); });
}

TEST_F(BundleInstallationTest, ABundleInAFolderThatCannotBeWrittenIsNotReplaceable) {
    ASSERT_EQ(::getuid(), 0U) << "needs root";
    ASSERT_EQ(::chown(bundle.path().c_str(), 65534, 65534), 0);
    std::filesystem::permissions(folder.url().path(), std::filesystem::perms(0755));
    withoutPrivilege(
        [&] { EXPECT_EQ(installationOf(bundle, environment), InstallationForm::foreignBundle); });
    std::filesystem::permissions(folder.url().path(), std::filesystem::perms(0777));
    withoutPrivilege(
        [&] { EXPECT_EQ(installationOf(bundle, environment), InstallationForm::ownBundle); });
}

TEST_F(BundleInstallationTest, PackagesBelongToTheSystem) {
    EXPECT_EQ(installationOf(FileUrl("/usr/lib/Blankwell+.app"), environment),
              InstallationForm::package);
}

TEST_F(BundleInstallationTest, ASandboxIsOneWhateverItHolds) {
    environment.variables["APP_SANDBOX_CONTAINER_ID"] = "app";
    EXPECT_EQ(installationOf(bundle, environment), InstallationForm::sandbox);
}

TEST_F(BundleInstallationTest, WithoutAnInfoPlistOrTheNameOfABundleItIsNone) {
    EXPECT_EQ(installationOf(folder.addFolder("Other.app"), environment),
              InstallationForm::looseProgram);
    folder.addFile("build/Contents/Info.plist");
    EXPECT_EQ(installationOf(folder.at("build"), environment), InstallationForm::looseProgram);
}

TEST_F(BundleInstallationTest, TheSystemHasAVersion) {
    EXPECT_FALSE(runningSystemVersion().empty());
}

} // namespace
} // namespace blankwell
