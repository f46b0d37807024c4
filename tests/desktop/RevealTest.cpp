#include "platform/linux/FileManagerWorkspace.h"

#include "base/FileUri.h"
#include "desktop/Desktop.h"
#include "desktop/PrivateBus.h"
#include "desktop/Program.h"
#include "support/FakeLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>

namespace blankwell {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::StartsWith;

struct Manager {
    const char* program;
    const char* desktopId;
    /// What the toolkit puts behind the folder's name in a title.
    const char* titleSuffix;
    /// A name on the bus that tells that it is up.
    const char* busName;
};

constexpr Manager nautilus{"nautilus", "org.gnome.Nautilus.desktop", "", "org.gnome.Nautilus"};
constexpr Manager dolphin{"dolphin", "org.kde.dolphin.desktop", " — Dolphin",
                          "org.freedesktop.FileManager1"};
constexpr Manager thunar{"thunar", "thunar.desktop", " - Thunar", "org.xfce.Thunar"};
constexpr Manager nemo{"nemo", "nemo.desktop", "", "org.Nemo"};

std::ostream& operator<<(std::ostream& stream, const Manager& manager) {
    return stream << manager.program;
}

void makeDefault(const Manager& manager) {
    using namespace std::string_literals;
    makeSettings("mimeapps.list",
                 "[Default Applications]\ninode/directory="s + manager.desktopId + "\n");
}

/// Lets this process, not the bus, look for desktop entries in `folder` only.
void forgetDesktopEntries(const FileUrl& folder) {
    for (const auto* variable : {"XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME"}) {
        ::setenv(variable, folder.path().c_str(), 1);
    }
}

struct RevealTest : testing::Test {
    RevealTest() {
        for (const auto* other : {"another", "zz"}) {
            makeFile(std::string("Wörk [1] #/") + other);
        }
    }

    milliseconds timeToReveal() {
        const auto start = std::chrono::steady_clock::now();
        workspace.reveal(file);
        return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - start);
    }

    /// Whether `manager` is asked to show the file.
    [[nodiscard]] bool getsRequest(const HungFileManager& manager) const {
        const auto request = "org.freedesktop.FileManager1.ShowItems " + fileUri(file);
        return eventually([&] { return manager.waitingCall() == request; });
    }

    /// Whether `manager` shows the folder with the file selected.
    [[nodiscard]] bool isShownBy(const Manager& manager) const {
        const auto title = "Wörk [1] #" + std::string(manager.titleSuffix);
        return windowAppears(title) && bringToFront(title) &&
               eventually([this] { return copiedFile() == file; });
    }

    FileUrl file = makeFile("Wörk [1] #/a [b] #%?&'\"é\n");
    FakeLog log;
    FileManagerWorkspace workspace{log};
};

struct FileManagerRevealTest : RevealTest, testing::WithParamInterface<Manager> {};

INSTANTIATE_TEST_SUITE_P(With, FileManagerRevealTest,
                         testing::Values(nautilus, dolphin, thunar, nemo),
                         testing::PrintToStringParamName());

TEST_P(FileManagerRevealTest, TheRunningFileManagerSelectsTheFile) {
    const auto& other = GetParam().program == thunar.program ? nautilus : thunar;
    makeDefault(other);
    const auto home = makeFolder("elsewhere");
    const Program running({GetParam().program, home.path()});
    ASSERT_TRUE(windowAppears("elsewhere" + std::string(GetParam().titleSuffix)));
    ASSERT_TRUE(eventually([] { return isOnBus(GetParam().busName); }));

    EXPECT_LT(timeToReveal(), milliseconds(100));
    EXPECT_TRUE(isShownBy(GetParam()));
    EXPECT_FALSE(isOnBus(other.busName));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_P(FileManagerRevealTest, WhereNoneRunsTheDefaultIsStartedAndSelectsTheFile) {
    makeDefault(GetParam());

    EXPECT_LT(timeToReveal(), milliseconds(300));
    EXPECT_TRUE(isShownBy(GetParam()));
    EXPECT_TRUE(isOnBus(GetParam().busName));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(RevealTest, WithoutADefaultTheBusStartsAFileManager) {
    const TemporaryFolder empty;
    forgetDesktopEntries(empty.url());

    EXPECT_LT(timeToReveal(), milliseconds(300));
    EXPECT_TRUE(eventually(
        [] { return testing::Matches(ElementsAre(StartsWith("Wörk [1] #")))(windowTitles()); }));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(RevealTest, AProgramThatIsNoKnownFileManagerOpensTheFolderByItsEntry) {
    const auto seen = desktopHome().appending("seen").path();
    makeSettings("../.local/share/applications/other.desktop",
                 "[Desktop Entry]\nType=Application\nName=Other\n"
                 "MimeType=inode/directory;\n"
                 "Exec=sh -c 'printf %%s \"$1\" >" +
                     seen + "' sh %f\n");
    makeDefault({.desktopId = "other.desktop"});

    workspace.reveal(file);
    EXPECT_TRUE(eventually(
        [&] { return outputOf({"cat", seen}) == file.deletingLastPathComponent().path(); }));
}

TEST_F(RevealTest, AHungFileManagerIsNotWaitedFor) {
    const HungFileManager hung("org.freedesktop.FileManager1");

    EXPECT_LT(timeToReveal(), milliseconds(100));
    EXPECT_THAT(log.lines, IsEmpty());
    EXPECT_TRUE(getsRequest(hung));
}

TEST_F(RevealTest, OneThatRunsWithoutTheCommonNameIsAskedByItsOwn) {
    const HungFileManager running("org.kde.dolphin-4711");

    workspace.reveal(file);
    EXPECT_TRUE(getsRequest(running));
}

TEST_F(RevealTest, TheOwnerOfTheCommonNameComesBeforeTheOthers) {
    const HungFileManager other("org.gnome.Nautilus");
    const HungFileManager owner("org.freedesktop.FileManager1");

    workspace.reveal(file);
    EXPECT_TRUE(getsRequest(owner));
    EXPECT_EQ(other.waitingCall(), "");
}

TEST_F(RevealTest, ABusThatBeginsToHangIsGivenUpWithinTheBound) {
    const PrivateBus bus;
    const HungFileManager running("org.freedesktop.FileManager1");
    workspace.reveal(file);
    ASSERT_THAT(log.lines, IsEmpty());
    bus.hang();

    EXPECT_LT(timeToReveal(), milliseconds(400));
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_THAT(log.lines[0].message, EndsWith("does not answer: Connection timed out"));
}

TEST_F(RevealTest, ABusThatWasStartedAgainIsUsed) {
    {
        const PrivateBus bus;
        const HungFileManager running("org.freedesktop.FileManager1");
        workspace.reveal(file);
    }
    const HungFileManager running("org.freedesktop.FileManager1");
    workspace.reveal(file);
    EXPECT_TRUE(getsRequest(running));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(RevealTest, WithoutAnyFileManagerOneLineIsLogged) {
    const PrivateBus bus;
    const TemporaryFolder empty;
    forgetDesktopEntries(empty.url());

    workspace.reveal(file);
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_EQ(log.lines[0].level, LogLevel::error);
    EXPECT_EQ(log.lines[0].category, "Workspace");
    EXPECT_THAT(log.lines[0].message,
                EndsWith("No file manager is installed: No such file or directory"));
}

} // namespace
} // namespace blankwell
