#include "platform/linux/X11WindowList.h"

#include "platform/linux/FileDescriptor.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>

#include <chrono>
#include <cstdlib>
#include <string>

namespace blankwell {
namespace {

using std::chrono::milliseconds;

/// A display whose server takes connections and says nothing.
class SilentDisplay {
public:
    SilentDisplay() {
        sockaddr_in address{.sin_family = AF_INET, .sin_addr = {htonl(INADDR_LOOPBACK)}};
        socklen_t size = sizeof(address);
        auto* const generic = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(::bind(socket_.get(), generic, size), 0);
        EXPECT_EQ(::listen(socket_.get(), 10), 0);
        EXPECT_EQ(::getsockname(socket_.get(), generic, &size), 0);
        constexpr int firstPort = 6000;
        const auto display = std::to_string(ntohs(address.sin_port) - firstPort);
        ::setenv("DISPLAY", ("127.0.0.1:" + display).c_str(), 1);
    }

    /// The next connection that somebody opens within `patience`, if there is one.
    FileDescriptor connection(milliseconds patience) {
        pollfd readiness{.fd = socket_.get(), .events = POLLIN, .revents = 0};
        const bool isThere = ::poll(&readiness, 1, static_cast<int>(patience.count())) == 1;
        return isThere ? FileDescriptor(::accept(socket_.get(), nullptr, nullptr))
                       : FileDescriptor();
    }

private:
    FileDescriptor socket_{::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)};
};

struct X11WindowListTest : testing::Test {
    static std::optional<WindowStack> ask() { return x11WindowStack(Deadline(milliseconds(50))); }

    /// Asks until the server hears of it, and returns the connection.
    FileDescriptor askServer() {
        FileDescriptor connection;
        for (int tries = 0; !connection && tries < 100; ++tries) {
            ask();
            connection = display.connection(milliseconds(100));
        }
        return connection;
    }

    SilentDisplay display;
};

TEST_F(X11WindowListTest, AServerThatSaysNothingIsWaitedForUntilTheDeadline) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(ask(), std::nullopt);
    EXPECT_GE(std::chrono::steady_clock::now() - start, milliseconds(50));
}

TEST_F(X11WindowListTest, AServerThatOwesAnAnswerIsNotAskedAgain) {
    auto connection = askServer();
    EXPECT_TRUE(connection);
    ask();
    EXPECT_FALSE(display.connection(milliseconds(200)));
    connection.reset();
    EXPECT_TRUE(askServer());
}

} // namespace
} // namespace blankwell
