#include "platform/linux/FileManagerFrontFolder.h"

#include "desktop/AccessibleDesktop.h"
#include "desktop/Desktop.h"
#include "desktop/Program.h"
#include "support/FakeSurroundings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <optional>
#include <ostream>
#include <string>
#include <thread>
#include <vector>

namespace blankwell {
namespace {

using std::chrono::milliseconds;

struct AccessibleFrontFolderTest : testing::Test {
    bool becomes(const FileUrl& folder) {
        const bool became = eventually([&] { return front.path() == folder.path(); });
        EXPECT_TRUE(became) << "still " << front.path().value_or("(nothing)");
        return became;
    }

    /// Whether there is no answer for as long as a program may need to draw its window.
    bool staysUnknown() {
        return !eventually([&] { return front.path().has_value(); }, milliseconds(1000));
    }

    AccessibleDesktop desktop;
    FakeWellKnownFolders wellKnown;
    FileManagerFrontFolder front{wellKnown, desktopHome(), [] { return std::vector<FileUrl>(); }};
    FileUrl projects = makeFolder("Projects");
    FileUrl foo = makeFolder("Projects/foo");
    FileUrl otherFoo = makeFolder("other/foo");
    FileUrl deep = makeFolder("a/b/c/deep [1] #ü");
};

struct FileManagerCase {
    const char* program;
    /// What stands behind the folder's name in the title.
    const char* suffix;
};

void PrintTo(const FileManagerCase& test, std::ostream* stream) {
    *stream << test.program;
}

struct AnyFileManagerTest : AccessibleFrontFolderTest,
                            testing::WithParamInterface<FileManagerCase> {
    static Arguments open(const FileUrl& folder) { return {GetParam().program, folder.path()}; }

    static std::string titleOf(const FileUrl& folder) {
        return std::string(folder.lastPathComponent()) + GetParam().suffix;
    }
};

INSTANTIATE_TEST_SUITE_P(Accessible, AnyFileManagerTest,
                         testing::Values(FileManagerCase{"thunar", " - Thunar"},
                                         FileManagerCase{"nemo", ""}, FileManagerCase{"caja", ""},
                                         FileManagerCase{"pcmanfm-qt", ""}),
                         [](const auto& test) {
                             std::string name = test.param.program;
                             std::erase(name, '-');
                             return name;
                         });

TEST_P(AnyFileManagerTest, TellsTheFolderWhereverItStands) {
    const Program manager(open(deep));
    EXPECT_TRUE(becomes(deep));
}

TEST_P(AnyFileManagerTest, TellsTheParentAfterGoingUp) {
    const Program manager(open(foo));
    ASSERT_TRUE(becomes(foo));
    ASSERT_TRUE(bringToFront(titleOf(foo)));
    type("alt+Up");
    EXPECT_TRUE(becomes(projects));
}

TEST_P(AnyFileManagerTest, TellsTheTabInFront) {
    const Program manager(open(foo));
    ASSERT_TRUE(becomes(foo));
    ASSERT_TRUE(bringToFront(titleOf(foo)));
    type("ctrl+t");
    std::this_thread::sleep_for(milliseconds(500));
    type("alt+Up");
    type("alt+Up");
    EXPECT_TRUE(eventually([&] { return front.path() != foo.path(); }));
    type("ctrl+Page_Up");
    EXPECT_TRUE(becomes(foo));
}

TEST_P(AnyFileManagerTest, TellsNothingOfTwoWindowsWithTheSameTitle) {
    const Program manager(open(foo));
    ASSERT_TRUE(becomes(foo));
    const Program second(open(otherFoo));
    ASSERT_TRUE(eventually([&] {
        const auto titles = windowTitles();
        return std::ranges::count(titles, titleOf(foo)) == 2;
    }));
    EXPECT_TRUE(eventually([&] { return !front.path(); }));
    EXPECT_TRUE(staysUnknown());
}

TEST_P(AnyFileManagerTest, TellsTheFrontOneOfTwoWindows) {
    const Program manager(open(foo));
    ASSERT_TRUE(becomes(foo));
    const Program second(open(deep));
    ASSERT_TRUE(becomes(deep));
    ASSERT_TRUE(bringToFront(titleOf(foo)));
    EXPECT_TRUE(becomes(foo));
}

TEST_P(AnyFileManagerTest, TellsNothingWithinTheBoundWhenItHangs) {
    const Program manager(open(foo));
    ASSERT_TRUE(becomes(foo));
    manager.hang();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(front.path(), std::nullopt);
    const auto time = std::chrono::steady_clock::now() - start;
    EXPECT_GE(time, milliseconds(290));
    EXPECT_LT(time, milliseconds(400));
}

TEST_P(AnyFileManagerTest, TellsNothingWithoutAccessibilityAndStartsNone) {
    desktop.launcher.reset();
    ASSERT_TRUE(eventually([] { return !isOnBus("org.a11y.Bus"); }));
    ::setenv("NO_AT_BRIDGE", "1", 1);
    ::unsetenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON");
    const Program manager(open(foo));
    ASSERT_TRUE(windowAppears(titleOf(foo)));
    EXPECT_TRUE(staysUnknown());
    EXPECT_FALSE(isOnBus("org.a11y.Bus"));
}

TEST_F(AccessibleFrontFolderTest, AHiddenLocationBarTellsNothing) {
    outputOf({"xfconf-query", "--channel", "thunar", "--property", "/last-location-bar", "--create",
              "--type", "string", "--set", "void"});
    const Program thunar({"thunar", foo.path()});
    ASSERT_TRUE(windowAppears("foo - Thunar"));
    EXPECT_TRUE(staysUnknown());
}

TEST_F(AccessibleFrontFolderTest, ALocationFieldInThePlaceOfAPathBarTellsToo) {
    const Program nemo({"nemo", foo.path()});
    ASSERT_TRUE(becomes(foo));
    ASSERT_TRUE(bringToFront("foo"));
    outputOf({"gsettings", "set", "org.nemo.preferences", "show-location-entry", "true"});
    EXPECT_TRUE(becomes(foo));
}

} // namespace
} // namespace blankwell
