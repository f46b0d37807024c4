#include "platform/linux/FileManagerFrontFolder.h"

#include "base/FileUri.h"
#include "desktop/Desktop.h"
#include "desktop/Program.h"
#include "support/FakeSurroundings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>

namespace blankwell {
namespace {

using std::chrono::milliseconds;

/// What the port says where there is no window at all.
const std::optional<std::string> noWindow = "";

void showPathsInThunarTitles() {
    outputOf({"xfconf-query", "--channel", "thunar", "--property",
              "/misc-full-path-in-window-title", "--create", "--type", "bool", "--set", "true"});
}

void letRootUseNemo() {
    outputOf({"gsettings", "set", "org.nemo.preferences", "treat-root-as-normal", "true"});
}

/// How many places Nautilus shows in all of its tabs.
std::ptrdiff_t nautilusTabs() {
    const auto windows =
        outputOf({"gdbus", "call", "--session", "--timeout", "1", "--dest", "org.gnome.Nautilus",
                  "--object-path", "/org/freedesktop/FileManager1", "--method",
                  "org.freedesktop.DBus.Properties.Get", "org.freedesktop.FileManager1",
                  "OpenWindowsWithLocations"});
    std::ptrdiff_t count = 0;
    for (auto at = windows.find("file://"); at != std::string::npos;
         at = windows.find("file://", at + 1)) {
        ++count;
    }
    return count;
}

/// Lets `program` hang at a moment at which it does not keep the X server to itself, as toolkits do
/// for moments: nobody would get an answer from the server then.
bool hangs(const Program& program) {
    return eventually([&] {
        program.hang();
        const bool serverAnswers =
            !outputOf({"timeout", "1", "xprop", "-root", "_NET_CLIENT_LIST"}).empty();
        if (!serverAnswers) {
            program.goOn();
        }
        return serverAnswers;
    });
}

struct FrontFolderTest : testing::Test {
    bool becomes(const FileUrl& folder) {
        const bool became = eventually([&] { return front.path() == folder.path(); });
        EXPECT_TRUE(became) << "still " << front.path().value_or("(nothing)");
        return became;
    }

    FakeWellKnownFolders wellKnown;
    std::vector<FileUrl> roots;
    FileManagerFrontFolder front{wellKnown, desktopHome(), [this] { return roots; }};
    FileUrl projects = makeFolder("Projects");
    FileUrl foo = makeFolder("Projects/foo");
    FileUrl deep = makeFolder("a/b/c/deep [1] #ü");
};

TEST_F(FrontFolderTest, WithoutAFileManagerThereIsNoWindow) {
    EXPECT_TRUE(eventually([&] { return front.path() == noWindow; }));
}

TEST_F(FrontFolderTest, WithoutADisplayNothingIsKnown) {
    ::unsetenv("DISPLAY");
    EXPECT_EQ(front.path(), std::nullopt);
}

TEST_F(FrontFolderTest, WithoutAWindowManagerNothingIsKnown) {
    const auto number = desktopHome().appending("display").path();
    const Program server({"sh", "-c", "exec Xvfb -displayfd 3 -nolisten tcp 3>" + number});
    std::string display;
    ASSERT_TRUE(eventually([&] {
        display = outputOf({"cat", number});
        return display.ends_with('\n');
    }));
    display.pop_back();
    ::setenv("DISPLAY", (":" + display).c_str(), 1);

    EXPECT_EQ(front.path(), std::nullopt);
}

TEST_F(FrontFolderTest, OfTwoNautilusWindowsTheFrontOneCounts) {
    const Program nautilus({"nautilus", "--new-window", projects.path(), deep.path()});
    ASSERT_TRUE(windowAppears("Projects"));
    ASSERT_TRUE(windowAppears("deep [1] #ü"));

    ASSERT_TRUE(bringToFront("deep [1] #ü"));
    EXPECT_TRUE(becomes(deep));
    ASSERT_TRUE(bringToFront("Projects"));
    EXPECT_TRUE(becomes(projects));
}

TEST_F(FrontFolderTest, OfSeveralNautilusTabsTheFrontOneCounts) {
    const Program nautilus({"nautilus", foo.path()});
    ASSERT_TRUE(windowAppears("foo"));
    ASSERT_TRUE(becomes(foo));
    ASSERT_TRUE(bringToFront("foo"));

    type("ctrl+t");
    ASSERT_TRUE(eventually([] { return nautilusTabs() == 2; }));
    type("alt+Up");
    ASSERT_TRUE(windowAppears("Projects"));
    EXPECT_TRUE(becomes(projects));
    type("ctrl+Page_Up");
    EXPECT_TRUE(becomes(foo));
}

TEST_F(FrontFolderTest, TheTrashIsNoFolder) {
    const Program nautilus({"nautilus", "trash:///"});
    ASSERT_TRUE(windowAppears("Trash"));
    EXPECT_EQ(front.path(), std::nullopt);
}

TEST_F(FrontFolderTest, AHungNautilusTellsNothingWithinTheBound) {
    const Program nautilus({"nautilus", foo.path()});
    ASSERT_TRUE(becomes(foo));
    ASSERT_TRUE(hangs(nautilus));

    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(front.path(), std::nullopt);
    const auto time = std::chrono::steady_clock::now() - start;
    EXPECT_GE(time, milliseconds(290));
    EXPECT_LT(time, milliseconds(400));
}

TEST_F(FrontFolderTest, AMinimisedWindowDoesNotCount) {
    const Program nautilus({"nautilus", foo.path()});
    ASSERT_TRUE(becomes(foo));

    outputOf({"xdotool", "windowminimize", windowNumber("foo")});
    EXPECT_TRUE(eventually([&] { return front.path() == noWindow; }));
}

TEST_F(FrontFolderTest, AWindowOnAnotherVirtualDesktopDoesNotCount) {
    const Program nautilus({"nautilus", foo.path()});
    ASSERT_TRUE(becomes(foo));

    outputOf({"xdotool", "set_desktop_for_window", windowNumber("foo"), "1"});
    EXPECT_TRUE(eventually([&] { return front.path() == noWindow; }));
}

TEST_F(FrontFolderTest, ALocationThatIsWrittenOnAWindowCounts) {
    const Program caja({"caja", foo.path()});
    ASSERT_TRUE(windowAppears("foo"));
    const auto write = [window = windowNumber("foo")](const std::string& location) {
        outputOf({"xprop", "-id", window, "-f", "_BLANKWELL_PLUS_LOCATION", "8u", "-set",
                  "_BLANKWELL_PLUS_LOCATION", location});
    };
    write(fileUri(deep));
    EXPECT_EQ(front.path(), deep.path());
    write("trash:///");
    EXPECT_EQ(front.path(), std::nullopt);
    write(fileUri(foo));
    EXPECT_EQ(front.path(), foo.path());
}

TEST_F(FrontFolderTest, DolphinConfirmsHomeAndWhatStandsNearIt) {
    {
        const Program dolphin({"dolphin", foo.path()});
        EXPECT_TRUE(becomes(foo));
    }
    const Program dolphin({"dolphin", desktopHome().path() + '/'});
    EXPECT_TRUE(becomes(desktopHome()));
}

TEST_F(FrontFolderTest, DolphinConfirmsFoldersBelowTheUsersRoots) {
    const Program dolphin({"dolphin", deep.path()});
    ASSERT_TRUE(windowAppears("deep [1] #ü — Dolphin"));
    EXPECT_EQ(front.path(), std::nullopt);

    roots = {FileUrl(desktopHome().path() + "/a/b")};
    EXPECT_TRUE(becomes(deep));
}

TEST_F(FrontFolderTest, DolphinTellsAnyFolderByItsPathInTheTitle) {
    makeSettings("dolphinrc", "[General]\nShowFullPathInTitlebar=true\n");
    const Program dolphin({"dolphin", projects.path(), deep.path()});
    EXPECT_TRUE(becomes(deep));
    ASSERT_TRUE(bringToFront(deep.path() + " — Dolphin"));
    type("ctrl+Page_Up");
    EXPECT_TRUE(becomes(projects));
}

TEST_F(FrontFolderTest, OfSeveralDolphinTabsNoneIsKnownToBeInFront) {
    const Program dolphin({"dolphin", projects.path()});
    ASSERT_TRUE(becomes(projects));
    ASSERT_TRUE(bringToFront("Projects — Dolphin"));

    type("ctrl+t");
    EXPECT_TRUE(eventually([&] { return !front.path(); }));
}

TEST_F(FrontFolderTest, OfASplitDolphinTabNeitherHalfIsKnownToBeInFront) {
    const Program dolphin({"dolphin", projects.path()});
    ASSERT_TRUE(becomes(projects));
    ASSERT_TRUE(bringToFront("Projects — Dolphin"));

    type("F3");
    EXPECT_TRUE(eventually([&] { return !front.path(); }));
}

TEST_F(FrontFolderTest, AHungDolphinTellsNothingWithinTheBound) {
    const Program dolphin({"dolphin", foo.path()});
    ASSERT_TRUE(becomes(foo));
    ASSERT_TRUE(hangs(dolphin));

    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(front.path(), std::nullopt);
    const auto time = std::chrono::steady_clock::now() - start;
    EXPECT_GE(time, milliseconds(290));
    EXPECT_LT(time, milliseconds(400));
}

TEST_F(FrontFolderTest, ThunarTellsWithThePathInTheTitle) {
    showPathsInThunarTitles();
    const Program thunar({"thunar", deep.path()});
    EXPECT_TRUE(becomes(deep));
}

TEST_F(FrontFolderTest, ThunarTellsNothingWithoutIt) {
    const Program thunar({"thunar", foo.path()});
    ASSERT_TRUE(windowAppears("foo - Thunar"));
    EXPECT_EQ(front.path(), std::nullopt);
}

TEST_F(FrontFolderTest, NemoTellsWithThePathInTheTitle) {
    outputOf({"gsettings", "set", "org.nemo.preferences", "show-full-path-titles", "true"});
    const Program nemo({"nemo", deep.path()});
    EXPECT_TRUE(becomes(deep));
}

TEST_F(FrontFolderTest, NemoTellsNothingWithoutIt) {
    const Program nemo({"nemo", foo.path()});
    ASSERT_TRUE(windowAppears("foo"));
    EXPECT_EQ(front.path(), std::nullopt);
}

TEST_F(FrontFolderTest, AFrontWindowThatTellsNothingIsNotPassedOver) {
    const Program nautilus({"nautilus", projects.path()});
    ASSERT_TRUE(becomes(projects));
    const Program nemo({"nemo", foo.path()});
    ASSERT_TRUE(windowAppears("foo"));
    // Nautilus may come to the front by itself once more while it starts.
    EXPECT_TRUE(eventually([&] { return bringToFront("foo") && !front.path(); }))
        << "still " << front.path().value_or("(nothing)");
}

TEST_F(FrontFolderTest, AFolderThatIsGoneIsNone) {
    showPathsInThunarTitles();
    const Program thunar({"thunar", foo.path()});
    ASSERT_TRUE(becomes(foo));
    ASSERT_TRUE(hangs(thunar));
    outputOf({"rmdir", foo.path()});
    EXPECT_EQ(front.path(), std::nullopt);
}

TEST_F(FrontFolderTest, TheDesktopThatAFileManagerDrawsIsTheDesktopFolder) {
    const auto desktop = makeFolder("Desktop");
    letRootUseNemo();
    const Program nemo({"nemo-desktop"});
    EXPECT_TRUE(becomes(desktop));
}

TEST_F(FrontFolderTest, ADrawnDesktopWithoutItsFolderIsNone) {
    wellKnown.desktopName = "Missing";
    letRootUseNemo();
    const Program nemo({"nemo-desktop"});
    EXPECT_TRUE(eventually([&] { return !front.path(); }));
}

TEST_F(FrontFolderTest, AskingStartsNoFileManager) {
    showPathsInThunarTitles();
    const Program thunar({"thunar", foo.path()});
    ASSERT_TRUE(becomes(foo));
    const auto window = windowNumber(foo.path() + " - Thunar");
    outputOf({"xdotool", "set_window", "--class", "org.gnome.Nautilus", window});

    EXPECT_TRUE(eventually([&] { return !front.path(); }));
    EXPECT_FALSE(eventually([] { return isOnBus("org.gnome.Nautilus"); }, milliseconds(1500)));
}

} // namespace
} // namespace blankwell
