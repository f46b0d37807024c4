#include "desktop/Desktop.h"
#include "desktop/Program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace blankwell {
namespace {

using testing::AllOf;
using testing::HasSubstr;

constexpr auto busName = "app.blankwell.BlankwellPlus";

std::string requestUrl(const FileUrl& folder) {
    return "blankwellplus://create?type=txt&directory=" + folder.path();
}

long filesIn(const FileUrl& folder) {
    return std::distance(std::filesystem::directory_iterator(folder.path()),
                         std::filesystem::directory_iterator());
}

/// What `blankwell ARGUMENTS` prints, on standard error as well, and its exit status behind it.
std::string commandLine(const std::string& arguments) {
    return outputOf(
        {"sh", "-c", std::string(BLANKWELL_COMMAND_LINE) + " " + arguments + " 2>&1; printf $?"});
}

/// Opens `url`, as a program that on its own could not: it has no grant.
std::string openByAnother(const std::string& url) {
    return outputOf({"sh", "-c",
                     "APP_SANDBOX_CONTAINER_ID=x " + std::string(BLANKWELL_COMMAND_LINE) +
                         " open '" + url + "' 2>&1; printf $?"});
}

/// Opens the URL that asks for a file in `folder`, `count` times at once; the outputs.
std::vector<std::string> openAtOnce(const FileUrl& folder, std::size_t count) {
    std::vector<std::string> outputs(count);
    std::vector<std::jthread> callers;
    for (auto& output : outputs) {
        callers.emplace_back([&] { output = commandLine("open '" + requestUrl(folder) + "'"); });
    }
    callers.clear();
    return outputs;
}

struct HandOverTest : testing::Test {
    HandOverTest() { std::filesystem::remove_all(desktopHome().appending(".config").path()); }

    ~HandOverTest() override {
        application.reset();
        endActivated();
        EXPECT_TRUE(eventually([] { return !isOnBus(busName); }));
    }

    void start() {
        application.emplace(Arguments{BLANKWELL_APPLICATION, "--background"});
        ASSERT_TRUE(eventually([] { return isOnBus(busName); }));
    }

    /// Makes it known to the bus how the application is started.
    void install() {
        const auto services = makeFolder(".local/share/dbus-1/services");
        std::filesystem::copy(BLANKWELL_SERVICE_FILE, services.path());
        outputOf({"busctl", "--user", "call", "org.freedesktop.DBus", "/org/freedesktop/DBus",
                  "org.freedesktop.DBus", "ReloadConfig"});
    }

    void expectExactly(long count) const {
        EXPECT_TRUE(eventually([&] { return filesIn(folder) >= count; })) << filesIn(folder);
        EXPECT_FALSE(eventually([&] { return filesIn(folder) > count; }, std::chrono::seconds(1)));
    }

    FileUrl folder = makeFolder("new files");
    std::optional<Program> application;

private:
    static void endActivated() {
        if (isOnBus(busName)) {
            const auto process = outputOf({"busctl", "--user", "call", "org.freedesktop.DBus",
                                           "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                           "GetConnectionUnixProcessID", "s", busName});
            outputOf({"kill", "-TERM", process.substr(2, process.size() - 3)});
        }
    }
};

TEST_F(HandOverTest, OpenIsDoneByTheRunningApplication) {
    start();
    EXPECT_EQ(openByAnother(requestUrl(folder)), "0");
    expectExactly(1);
}

TEST_F(HandOverTest, OpenStartsAnApplicationThatIsInstalled) {
    install();
    EXPECT_EQ(openByAnother(requestUrl(folder)), "0");
    expectExactly(1);
    EXPECT_TRUE(isOnBus(busName));
}

TEST_F(HandOverTest, OpenDoesItAloneWhereNothingCanBeStarted) {
    EXPECT_EQ(commandLine("open '" + requestUrl(folder) + "'"), "0");
    EXPECT_EQ(filesIn(folder), 1);
    EXPECT_FALSE(isOnBus(busName));
}

TEST_F(HandOverTest, TenRequestsAtOnceToARunningApplicationAreDoneOnceEach) {
    start();
    EXPECT_THAT(openAtOnce(folder, 10), testing::Each("0"));
    expectExactly(10);
}

TEST_F(HandOverTest, TenRequestsAtOnceToAStartingApplicationAreDoneOnceEach) {
    application.emplace(Arguments{BLANKWELL_APPLICATION, "--background"});
    EXPECT_THAT(openAtOnce(folder, 10), testing::Each("0"));
    expectExactly(10);
    EXPECT_TRUE(eventually([] { return isOnBus(busName); }));
}

TEST_F(HandOverTest, TenRequestsAtOnceToAnAbsentApplicationAreDoneOnceEach) {
    install();
    EXPECT_THAT(openAtOnce(folder, 10), testing::Each("0"));
    expectExactly(10);
}

TEST_F(HandOverTest, RequestsWhileTheApplicationQuitsAreDoneOnceEach) {
    start();
    std::jthread quit([&] {
        eventually([&] { return filesIn(folder) > 3; });
        EXPECT_EQ(application->terminate(), 0);
    });
    EXPECT_THAT(openAtOnce(folder, 40), testing::Each("0"));
    quit.join();
    expectExactly(40);
}

TEST_F(HandOverTest, WhatWasAcceptedBeforeAQuitIsDoneBeforeTheEnd) {
    start();
    // A dialog holds the first request, and with it those behind it.
    EXPECT_EQ(outputOf({"sh", "-c",
                        std::string(BLANKWELL_APPLICATION) +
                            " 'blankwellplus://create?type=none&directory=/'; printf $?"}),
              "0");
    ASSERT_TRUE(windowAppears("Could not create file"));
    EXPECT_THAT(openAtOnce(folder, 3), testing::Each("0"));
    EXPECT_EQ(filesIn(folder), 0);
    EXPECT_EQ(application->terminate(), 0);
    EXPECT_EQ(filesIn(folder), 3);
}

TEST_F(HandOverTest, AnApplicationThatHangsDoesItOnceWhenItGoesOn) {
    start();
    application->hang();
    EXPECT_THAT(commandLine("open '" + requestUrl(folder) + "'"),
                AllOf(HasSubstr("does not answer"), testing::EndsWith("\n1")));
    EXPECT_EQ(filesIn(folder), 0);
    application->goOn();
    expectExactly(1);
}

TEST_F(HandOverTest, WhatIsNoRequestIsRefusedAsWithoutAnApplication) {
    const auto refusals = [] {
        return std::vector{commandLine("open blankwellplus://open"), commandLine("open x:"),
                           commandLine("open 'blankwellplus://create?type=exe&directory=/'")};
    };
    const auto alone = refusals();
    EXPECT_THAT(alone, testing::ElementsAre(testing::EndsWith("\n2"), testing::EndsWith("\n2"),
                                            testing::EndsWith("\n1")));
    start();
    EXPECT_EQ(refusals(), alone);
}

TEST_F(HandOverTest, CreatePrintsItsPathWhetherOrNotTheApplicationRuns) {
    start();
    EXPECT_EQ(commandLine("create txt '" + folder.path() + "'"),
              folder.path() + "/Untitled.txt\n0");
    EXPECT_EQ(commandLine("create txt /nowhere"),
              "Could not create \"Untitled.txt\" in \"nowhere\": No such file or directory.\n1");
}

TEST_F(HandOverTest, QuickCreateOpensThePanel) {
    start();
    EXPECT_EQ(commandLine("quick-create"), "0");
    EXPECT_TRUE(windowAppears("Create File"));
}

TEST_F(HandOverTest, QuickCreateStartsAnApplicationThatIsInstalled) {
    install();
    EXPECT_EQ(commandLine("quick-create"), "0");
    EXPECT_TRUE(windowAppears("Create File"));
}

TEST_F(HandOverTest, QuickCreateSaysThatNothingCanBeStarted) {
    EXPECT_EQ(commandLine("quick-create"),
              "Blankwell+ is not running, and the session does not know how to start it.\n1");
}

TEST_F(HandOverTest, QuickCreateSaysThatThereIsNoSessionBus) {
    ::unsetenv("XDG_RUNTIME_DIR");
    const std::string bus = std::getenv("DBUS_SESSION_BUS_ADDRESS");
    ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
    EXPECT_THAT(commandLine("quick-create"),
                AllOf(HasSubstr("The session bus cannot be reached"), testing::EndsWith("\n1")));
    ::setenv("DBUS_SESSION_BUS_ADDRESS", bus.c_str(), 1);
}

} // namespace
} // namespace blankwell
