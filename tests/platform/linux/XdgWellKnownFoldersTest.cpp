#include "platform/linux/XdgWellKnownFolders.h"

#include "contract/WellKnownFoldersContract.h"
#include "support/FakeSurroundings.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace blankwell {
namespace {

struct FakeFoldersSubject {
    const WellKnownFolders& folders() { return fake; }

    FakeWellKnownFolders fake;
};

struct XdgFoldersSubject {
    const WellKnownFolders& folders() { return xdg; }

    XdgWellKnownFolders xdg{"nina"};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, WellKnownFoldersContract, FakeFoldersSubject);
INSTANTIATE_TYPED_TEST_SUITE_P(Xdg, WellKnownFoldersContract, XdgFoldersSubject);

struct XdgDesktopTest : testing::Test {
    /// The Desktop folder of a home whose user-dirs.dirs holds `settings`, with the home's path
    /// written as "~".
    std::string desktopWith(std::string_view settings) const {
        home.addFile(".config/user-dirs.dirs", settings);
        return desktop();
    }

    std::string desktop() const {
        auto path = XdgWellKnownFolders("nina").desktop(home.url()).path();
        if (path.starts_with(home.url().path())) {
            path.replace(0, home.url().path().size(), 1, '~');
        }
        return path;
    }

    TemporaryFolder home;
};

TEST_F(XdgDesktopTest, IsDesktopInTheHomeWhereNothingElseIsSaid) {
    EXPECT_EQ(desktop(), "~/Desktop");
    EXPECT_EQ(desktopWith(""), "~/Desktop");
    EXPECT_EQ(desktopWith("XDG_DOWNLOAD_DIR=\"$HOME/Downloads\"\n"), "~/Desktop");
}

TEST_F(XdgDesktopTest, SettingsThatCannotBeReadSayNothing) {
    home.addFolder(".config/user-dirs.dirs");
    EXPECT_EQ(desktop(), "~/Desktop");
}

TEST_F(XdgDesktopTest, IsTheFolderThatTheUsersSettingsName) {
    EXPECT_EQ(desktopWith("# This file is written by xdg-user-dirs-update\n"
                          "XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n"
                          "XDG_DOWNLOAD_DIR=\"$HOME/Downloads\"\n"),
              "~/Schreibtisch");
    EXPECT_EQ(desktopWith("XDG_DESKTOP_DIR=\"/srv/desk top/nina\""), "/srv/desk top/nina");
}

TEST_F(XdgDesktopTest, MayBeTheHomeItself) {
    EXPECT_EQ(desktopWith("XDG_DESKTOP_DIR=\"$HOME/\"\n"), "~");
    EXPECT_EQ(desktopWith("XDG_DESKTOP_DIR=\"$HOME\"\n"), "~");
}

TEST_F(XdgDesktopTest, BlanksAreSkippedAndBackslashesQuote) {
    EXPECT_EQ(desktopWith(" \tXDG_DESKTOP_DIR = \"$HOME/a \\\"b\\\" \\\\ \\$c\" # mine\n"),
              "~/a \"b\" \\ $c");
}

TEST_F(XdgDesktopTest, IsStandardized) {
    EXPECT_EQ(desktopWith("XDG_DESKTOP_DIR=\"$HOME//a/./b/../Desk/\"\n"), "~/a/Desk");
}

TEST_F(XdgDesktopTest, TheLastAssignmentThatCanBeUsedWins) {
    EXPECT_EQ(desktopWith("XDG_DESKTOP_DIR=\"$HOME/A\"\n"
                          "XDG_DESKTOP_DIR=\"$HOME/B\"\n"
                          "#XDG_DESKTOP_DIR=\"$HOME/C\"\n"
                          "XDG_DESKTOP_DIR=\"relative\"\n"
                          "XDG_DESKTOP_DIR=\"$HOMELESS/D\"\n"
                          "XDG_DESKTOP_DIR=$HOME/E\n"
                          "XDG_DESKTOP_DIR=\"$HOME/F\n"
                          "XDG_DESKTOP_DIR\n"
                          "XDG_DESKTOP_DIR \"$HOME/I\"\n"
                          "XDG_DESKTOP_DIRECTORY=\"$HOME/G\"\n"),
              "~/B");
}

TEST_F(XdgDesktopTest, TheEnvironmentHasNoSay) {
    const TemporaryFolder other;
    other.addFile("user-dirs.dirs", "XDG_DESKTOP_DIR=\"$HOME/Other\"\n");
    ::setenv("XDG_CONFIG_HOME", other.url().path().c_str(), 1);
    ::setenv("XDG_DESKTOP_DIR", "/other", 1);
    EXPECT_EQ(desktop(), "~/Desktop");
    ::unsetenv("XDG_CONFIG_HOME");
    ::unsetenv("XDG_DESKTOP_DIR");
}

TEST_F(XdgDesktopTest, ReadsWhatTheSystemsOwnToolWrites) {
    const auto& path = home.url().path();
    const auto command = "env -i PATH=/usr/bin:/bin HOME=" + path +
                         " xdg-user-dirs-update --set DESKTOP \"" + path + "/Bureau d'été\"";
    ASSERT_EQ(std::system(command.c_str()), 0); // NOLINT(cert-env33-c): a command of the test's own
    EXPECT_EQ(desktop(), "~/Bureau d'été");
}

struct XdgVolumesTest : testing::Test {
    std::vector<FileUrl> volumes(std::optional<std::string> userName) const {
        return XdgWellKnownFolders(std::move(userName), {media, runMedia}).volumes();
    }

    TemporaryFolder root;
    FileUrl media = root.url().appending("media");
    FileUrl runMedia = root.url().appending("run/media");
};

TEST_F(XdgVolumesTest, TheUsersOwnMediaFoldersComeFirstIfTheyExist) {
    EXPECT_THAT(volumes("nina"), testing::ElementsAre(FileUrl("/Volumes")));
    root.addFolder("run/media/nina");
    EXPECT_THAT(volumes("nina"),
                testing::ElementsAre(runMedia.appending("nina"), FileUrl("/Volumes")));
    root.addFolder("media/nina");
    EXPECT_THAT(volumes("nina"),
                testing::ElementsAre(media.appending("nina"), runMedia.appending("nina"),
                                     FileUrl("/Volumes")));
}

TEST_F(XdgVolumesTest, AFileIsNoMediaFolder) {
    root.addFile("media/nina");
    EXPECT_THAT(volumes("nina"), testing::ElementsAre(FileUrl("/Volumes")));
}

TEST_F(XdgVolumesTest, AUserWithoutANameHasNoMediaFolders) {
    root.addFolder("media");
    EXPECT_THAT(volumes(std::nullopt), testing::ElementsAre(FileUrl("/Volumes")));
}

} // namespace
} // namespace blankwell
