#include "platform/linux/FileManagerProcesses.h"

#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <fcntl.h>

#include <sys/wait.h>
#include <unistd.h>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

TEST(FileManagerProcessesTest, AProgramIsToldByItsFile) {
    EXPECT_EQ(fileManagerOfProgram("/usr/bin/nautilus"), FileManager::nautilus);
    EXPECT_EQ(fileManagerOfProgram("/opt/kde/bin/dolphin"), FileManager::dolphin);
    EXPECT_EQ(fileManagerOfProgram("/usr/bin/Thunar"), FileManager::thunar);
    EXPECT_EQ(fileManagerOfProgram("/usr/bin/pcmanfm-qt"), FileManager::pcmanfmQt);
    EXPECT_EQ(fileManagerOfProgram("/usr/bin/nemo (deleted)"), FileManager::nemo);
}

TEST(FileManagerProcessesTest, AnotherProgramIsNone) {
    for (const auto* other : {"/usr/bin/nemo-desktop", "/nautilus/bin/sh", "", " (deleted)",
                              "/usr/bin/dolphin-emu", "/usr/bin/thunar-volman"}) {
        EXPECT_EQ(fileManagerOfProgram(other), std::nullopt) << other;
    }
}

/// A session of which only this test knows, and programs in it that do nothing.
struct RunningFileManagersTest : testing::Test {
    RunningFileManagersTest() {
        std::filesystem::permissions(folder.url().path(), std::filesystem::perms::all);
        ::setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + folder.url().path()).c_str(), 1);
        ::setenv("DISPLAY", ":4711", 1);
    }

    ~RunningFileManagersTest() override {
        for (const auto process : started) {
            ::kill(process, SIGKILL);
            ::waitpid(process, nullptr, 0);
        }
        ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
        ::unsetenv("DISPLAY");
    }

    RunningFileManagersTest(const RunningFileManagersTest&) = delete;
    RunningFileManagersTest& operator=(const RunningFileManagersTest&) = delete;

    /// Starts a program called `name`, which does `before` first, and returns its process id.
    std::uint32_t start(const std::string& name, const std::function<void()>& before = [] {}) {
        const auto program = folder.at(name).path();
        std::filesystem::copy_file("/usr/bin/sleep", program,
                                   std::filesystem::copy_options::skip_existing);
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
        started.push_back(::fork());
        if (started.back() == 0) {
            before();
            ::execl(program.c_str(), name.c_str(), "60", nullptr);
            ::_exit(1);
        }
        ::close(ends[1]);
        char nothing = 0;
        EXPECT_EQ(::read(ends[0], &nothing, 1), 0); // which the start of the program ends
        ::close(ends[0]);
        return static_cast<std::uint32_t>(started.back());
    }

    static std::vector<std::uint32_t> found() {
        std::vector<std::uint32_t> ids;
        for (const auto& process : runningFileManagers()) {
            ids.push_back(process.id);
        }
        return ids;
    }

    TemporaryFolder folder;
    std::vector<pid_t> started;
};

TEST_F(RunningFileManagersTest, AreFoundWhateverTheyAreAndHoweverMany) {
    const auto first = start("nautilus");
    const auto second = start("dolphin");
    const auto third = start("dolphin");
    start("sleep");
    EXPECT_THAT(found(), UnorderedElementsAre(first, second, third));
    for (const auto& process : runningFileManagers()) {
        EXPECT_EQ(process.fileManager,
                  process.id == first ? FileManager::nautilus : FileManager::dolphin);
        EXPECT_FALSE(process.handle.hasEnded());
    }
}

TEST_F(RunningFileManagersTest, OneWhoseProgramWasReplacedIsFound) {
    const auto process = start("thunar");
    std::filesystem::remove(folder.at("thunar").path());
    EXPECT_THAT(found(), ElementsAre(process));
}

TEST_F(RunningFileManagersTest, OneThatHasEndedIsNot) {
    const auto process = start("nemo");
    ASSERT_THAT(found(), ElementsAre(process));
    ::kill(static_cast<pid_t>(process), SIGKILL);
    siginfo_t end{};
    ASSERT_EQ(::waitid(P_PID, process, &end, WEXITED | WNOWAIT), 0);
    EXPECT_THAT(found(), IsEmpty());
}

TEST_F(RunningFileManagersTest, OneOfAnotherSessionIsNot) {
    start("nautilus", [] { ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/other", 1); });
    start("nautilus", [] { ::setenv("DISPLAY", ":4712", 1); });
    start("nautilus", [] { ::unsetenv("DBUS_SESSION_BUS_ADDRESS"); });
    EXPECT_THAT(found(), IsEmpty());
}

TEST_F(RunningFileManagersTest, OneOfAnotherUserIsNot) {
    // Only root can start a program as somebody else.
    start("nautilus", becomeUnprivileged);
    EXPECT_EQ(found().empty(), ::getuid() == 0);
}

TEST_F(RunningFileManagersTest, WithoutASessionNoneIsFound) {
    start("nautilus");
    ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
    ::unsetenv("XDG_RUNTIME_DIR");
    EXPECT_THAT(found(), IsEmpty());
}

/// A process that waits for its end.
pid_t waitingChild() {
    const auto child = ::fork();
    if (child == 0) {
        ::pause();
        ::_exit(0);
    }
    return child;
}

TEST(ProcessHandleTest, TellsTheEndAndBringsItAbout) {
    const auto child = waitingChild();
    const auto handle = ProcessHandle::open(child);
    ASSERT_TRUE(handle);
    EXPECT_FALSE(handle->hasEnded());

    handle->kill();

    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(WTERMSIG(status), SIGKILL);
    EXPECT_TRUE(handle->hasEnded());
    handle->kill();
    EXPECT_TRUE(handle->hasEnded());
}

TEST(ProcessHandleTest, AProcessThatIsNotThereHasNone) {
    const auto child = waitingChild();
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_FALSE(ProcessHandle::open(child));
}

} // namespace
} // namespace blankwell
