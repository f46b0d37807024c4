#include "platform/linux/FileManagerWorkspace.h"

#include "support/FakeLog.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>

namespace blankwell {
namespace {

using testing::HasSubstr;

/// A bus that takes connections and never says a word.
class HungBus {
public:
    explicit HungBus(const FileUrl& place) {
        sockaddr_un address{.sun_family = AF_UNIX};
        place.path().copy(static_cast<char*>(address.sun_path), sizeof address.sun_path - 1);
        EXPECT_EQ(::bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(::listen(socket_, 1), 0);
    }

    ~HungBus() { ::close(socket_); }

    HungBus(const HungBus&) = delete;
    HungBus& operator=(const HungBus&) = delete;

private:
    int socket_ = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
};

struct FileManagerWorkspaceTest : testing::Test {
    FileManagerWorkspaceTest() {
        const auto address = "unix:path=" + bus.path();
        ::setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
    }

    ~FileManagerWorkspaceTest() override { ::unsetenv("DBUS_SESSION_BUS_ADDRESS"); }

    std::chrono::steady_clock::duration timeToReveal() {
        const auto start = std::chrono::steady_clock::now();
        workspace.reveal(FileUrl("/a/b\nc.txt"));
        return std::chrono::steady_clock::now() - start;
    }

    TemporaryFolder folder;
    FileUrl bus = folder.url().appending("bus");
    FakeLog log;
    FileManagerWorkspace workspace{log};
};

TEST_F(FileManagerWorkspaceTest, WithoutABusOneLineIsLoggedAtOnce) {
    EXPECT_LT(timeToReveal(), std::chrono::milliseconds(200));

    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_EQ(log.lines[0].level, LogLevel::error);
    EXPECT_EQ(log.lines[0].category, "Workspace");
    EXPECT_EQ(log.lines[0].message,
              "file:///a/b%0Ac.txt is not shown in the file manager. "
              "The session bus cannot be reached: No such file or directory.");
}

TEST_F(FileManagerWorkspaceTest, AHungBusIsGivenUpWithinTheBound) {
    const HungBus hung(bus);

    const auto time = timeToReveal();

    EXPECT_GE(time, std::chrono::milliseconds(290));
    EXPECT_LT(time, std::chrono::milliseconds(400));
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_THAT(log.lines[0].message, HasSubstr("cannot be reached: Connection timed out"));
}

} // namespace
} // namespace blankwell
