#include "platform/linux/SessionFileManagers.h"

#include "contract/FileManagersContract.h"
#include "desktop/AccessibleDesktop.h"
#include "desktop/Desktop.h"
#include "desktop/PrivateBus.h"
#include "desktop/Program.h"
#include "platform/linux/WindowFolders.h"
#include "platform/linux/X11WindowList.h"
#include "support/FakeSurroundings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <vector>

namespace blankwell {
namespace {

using std::chrono::milliseconds;
using testing::IsEmpty;
using testing::SizeIs;

std::vector<FileUrl> noRoots() {
    return {};
}

void showPathsInThunarTitles() {
    outputOf({"xfconf-query", "--channel", "thunar", "--property",
              "/misc-full-path-in-window-title", "--create", "--type", "bool", "--set", "true"});
}

/// Thunar, which tells its folders exactly where the titles hold paths.
class ThunarWorld {
public:
    ThunarWorld() { showPathsInThunarTitles(); }

    FileManagers& managers() { return managers_; }

    void start() {
        thunar_.emplace(Arguments{"thunar", folder_.path()});
        EXPECT_TRUE(isBack());
    }

    bool isBack() const { return windowAppears(folder_.path() + " - Thunar"); }

    static bool staysAway() {
        return !eventually([] { return !runningFileManagers().empty(); }, milliseconds(1500));
    }

    static bool staysAlone() {
        return !eventually([] { return windowTitles().size() > 1; }, milliseconds(1500));
    }

    static bool ends(const RunningFileManager& process) {
        return eventually([&] { return process.isTerminated(); });
    }

private:
    FakeWellKnownFolders wellKnown_;
    FileUrl folder_ = makeFolder("a/b/deep [1] #ü");
    SessionFileManagers managers_{wellKnown_, desktopHome(), noRoots};
    std::optional<Program> thunar_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Thunar, FileManagersContract, ThunarWorld);

struct SessionFileManagersTest : testing::Test {
    /// Lets every file manager quit as the user would, starts them again, and tells what was found.
    std::size_t restart() { return restart(managers); }

    static std::size_t restart(FileManagers& managers) {
        const auto running = managers.running();
        for (const auto& process : running) {
            EXPECT_TRUE(process->terminate());
        }
        for (const auto& process : running) {
            EXPECT_TRUE(eventually([&] { return process->isTerminated(); }));
        }
        EXPECT_TRUE(eventually([] { return windowTitles().empty(); }));
        managers.relaunch();
        return running.size();
    }

    static std::optional<WindowStack> windows() {
        return x11WindowStack(Deadline(milliseconds(20000)));
    }

    /// The folders that are open now, in all tabs of all windows.
    std::multiset<FileUrl> openFolders() const {
        const WindowFolders folders(wellKnown, desktopHome(), noRoots);
        std::multiset<FileUrl> open;
        for (const auto& window : fileManagerWindows(windows().value_or(WindowStack()))) {
            open.merge(toSet(folders.all(window, Deadline(milliseconds(1000)))));
        }
        return open;
    }

    static std::multiset<FileUrl> toSet(const std::vector<FileUrl>& folders) {
        return {folders.begin(), folders.end()};
    }

    FakeWellKnownFolders wellKnown;
    SessionFileManagers managers{wellKnown, desktopHome(), noRoots};
    FileUrl one = makeFolder("one");
    FileUrl two = makeFolder("two [2] #ü%41");
};

TEST_F(SessionFileManagersTest, NautilusComesBackWithAllItsWindows) {
    const Program nautilus({"nautilus", "--new-window", one.path(), two.path()});
    ASSERT_TRUE(windowAppears("one"));
    ASSERT_TRUE(windowAppears("two [2] #ü%41"));

    EXPECT_EQ(restart(), 1U);

    EXPECT_TRUE(windowAppears("one"));
    EXPECT_TRUE(windowAppears("two [2] #ü%41"));
}

TEST_F(SessionFileManagersTest, EachDolphinComesBackWithItsTabs) {
    const Program first({"dolphin", "--new-window", desktopHome().path(), two.path()});
    const Program second({"dolphin", "--new-window", one.path()});
    const std::multiset<FileUrl> folders{one, two, desktopHome()};
    const auto isOpen = [&] { return windowTitles().size() == 2 && openFolders() == folders; };
    ASSERT_TRUE(eventually(isOpen));

    EXPECT_EQ(restart(), 2U);

    EXPECT_TRUE(eventually(isOpen)) << testing::PrintToString(windowTitles());
}

TEST_F(SessionFileManagersTest, AWindowThatDoesNotTellComesBackWithTheHomeFolder) {
    const Program thunar({"thunar", two.path()});
    ASSERT_TRUE(windowAppears("two [2] #ü%41 - Thunar"));

    EXPECT_EQ(restart(), 1U);

    EXPECT_TRUE(windowAppears("home - Thunar")) << testing::PrintToString(windowTitles());
}

TEST_F(SessionFileManagersTest, WhoHasNoHomeKeepsTheirWindowsToo) {
    showPathsInThunarTitles();
    const auto title = two.path() + " - Thunar";
    const Program thunar({"thunar", two.path()});
    ASSERT_TRUE(windowAppears(title));
    SessionFileManagers homeless(wellKnown, desktopHome().appending("missing"), noRoots);

    EXPECT_EQ(restart(homeless), 1U);

    EXPECT_TRUE(windowAppears(title)) << testing::PrintToString(windowTitles());
}

TEST_F(SessionFileManagersTest, NemoComesBack) {
    outputOf({"gsettings", "set", "org.nemo.preferences", "treat-root-as-normal", "true"});
    outputOf({"gsettings", "set", "org.nemo.preferences", "show-full-path-titles", "true"});
    const Program nemo({"nemo", one.path(), two.path()});
    const auto title = [](const FileUrl& folder) {
        return std::string(folder.lastPathComponent()) + " - " + folder.path();
    };
    ASSERT_TRUE(windowAppears(title(one)));
    ASSERT_TRUE(windowAppears(title(two)));

    EXPECT_EQ(restart(), 1U);

    EXPECT_TRUE(windowAppears(title(one)));
    EXPECT_TRUE(windowAppears(title(two)));
}

struct DesktopDrawer {
    const char* program;
    Arguments drawing;
};

void PrintTo(const DesktopDrawer& drawer, std::ostream* stream) {
    *stream << drawer.program;
}

struct DesktopDrawingTest : SessionFileManagersTest, testing::WithParamInterface<DesktopDrawer> {
    static bool desktopIsDrawn() {
        return eventually([] {
            const auto stack = windows();
            return stack && std::ranges::any_of(stack->windows, [](const auto& window) {
                       return window.kind == DesktopWindow::Kind::desktop;
                   });
        });
    }

    AccessibleDesktop accessible;
};

INSTANTIATE_TEST_SUITE_P(
    Drawers, DesktopDrawingTest,
    testing::Values(DesktopDrawer{"caja", {"caja", "--force-desktop", "--no-default-window"}},
                    DesktopDrawer{"pcmanfm-qt", {"pcmanfm-qt", "--desktop"}}),
    [](const auto& test) { return std::string(test.param.program).substr(0, 4); });

TEST_P(DesktopDrawingTest, ComesBackWithTheDesktopAndTheWindows) {
    const Program drawer(GetParam().drawing);
    ASSERT_TRUE(desktopIsDrawn());
    outputOf({"timeout", "5", GetParam().program, one.path()});
    ASSERT_TRUE(windowAppears("one"));

    EXPECT_EQ(restart(), 1U);

    EXPECT_TRUE(desktopIsDrawn());
    EXPECT_TRUE(windowAppears("one")) << testing::PrintToString(windowTitles());
}

TEST_F(SessionFileManagersTest, OneThatHangsIsForcedAndComesBack) {
    showPathsInThunarTitles();
    const auto title = one.path() + " - Thunar";
    const Program thunar({"thunar", one.path()});
    ASSERT_TRUE(windowAppears(title));
    auto running = managers.running();
    ASSERT_THAT(running, SizeIs(1));
    thunar.hang();

    EXPECT_TRUE(running[0]->terminate());
    EXPECT_FALSE(eventually([&] { return running[0]->isTerminated(); }, milliseconds(1000)));
    running[0]->forceTerminate();
    EXPECT_TRUE(eventually([&] { return running[0]->isTerminated(); }));
    ASSERT_TRUE(eventually([] { return windowTitles().empty(); }));
    managers.relaunch();

    EXPECT_TRUE(windowAppears(title));
}

TEST_F(SessionFileManagersTest, ADolphinThatHangsRefuses) {
    const Program dolphin({"dolphin", one.path()});
    ASSERT_TRUE(windowAppears("one — Dolphin"));
    const auto running = managers.running();
    ASSERT_THAT(running, SizeIs(1));
    dolphin.hang();
    EXPECT_FALSE(running[0]->terminate());
}

TEST_F(SessionFileManagersTest, OneThatStillRunsIsLeftAlone) {
    const Program nautilus({"nautilus", "--new-window", one.path()});
    ASSERT_TRUE(windowAppears("one"));
    ASSERT_THAT(managers.running(), SizeIs(1));

    managers.relaunch();

    EXPECT_FALSE(eventually([] { return windowTitles().size() > 1; }, milliseconds(1500)));
}

TEST_F(SessionFileManagersTest, OneOnAnotherBusIsOfAnotherSession) {
    const Program thunar({"thunar", one.path()});
    ASSERT_TRUE(windowAppears("one - Thunar"));
    {
        const PrivateBus other;
        EXPECT_THAT(managers.running(), IsEmpty());
    }
    EXPECT_THAT(managers.running(), SizeIs(1));
}

} // namespace
} // namespace blankwell
