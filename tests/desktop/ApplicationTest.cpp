#include "desktop/ApplicationFixture.h"
#include "desktop/BusPeer.h"
#include "desktop/Desktop.h"
#include "desktop/PrivateBus.h"
#include "desktop/ShownStatusItem.h"
#include "desktop/TestKeyboard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <systemd/sd-bus.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace blankwell {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr auto busName = "app.blankwell.BlankwellPlus";
constexpr auto barName = "org.kde.StatusNotifierWatcher";

long filesIn(const FileUrl& folder) {
    return std::distance(std::filesystem::directory_iterator(folder.path()),
                         std::filesystem::directory_iterator());
}

/// Closes the main window as its user does.
bool closeMainWindow() {
    // A key that comes while the window manager turns to the window is lost.
    return windowAppears("Blankwell+") && eventually([] {
               type("alt+F4");
               return windowNumber("Blankwell+").empty();
           });
}

bool isRunning() {
    return isOnBus(busName);
}

/// Notes the name of the error that a call is answered with; empty where there is none.
int noteAnswer(sd_bus_message* answer, void* noted, sd_bus_error* /*error*/) {
    const auto* const error = sd_bus_message_get_error(answer);
    *static_cast<std::optional<std::string>*>(noted) = error == nullptr ? "" : error->name;
    return 0;
}

constexpr std::uint32_t keyN = 45;
constexpr std::uint32_t x11ControlOption = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1;

using ApplicationTest = ApplicationFixture;

/// Another program has the only hot key.
struct ApplicationWithoutHotKeysTest : ApplicationFixture {
    ApplicationWithoutHotKeysTest() { EXPECT_TRUE(rival.grab(keyN, x11ControlOption)); }

    RivalProgram rival;
};

TEST_F(ApplicationTest, ASecondStartHandsItsUrlToTheRunningOneAndExits) {
    startInBackground();
    const auto folder = makeFolder("second");
    EXPECT_EQ(statusOf("'" + requestUrl(folder, "md") + "'"), "0");
    EXPECT_TRUE(eventually(
        [&] { return std::filesystem::exists(folder.appending("Untitled.md").path()); }));
    EXPECT_EQ(filesIn(folder), 1);
}

TEST_F(ApplicationTest, OfTenUrlsForAnApplicationThatStartsNoneIsLostAndNoneServedTwice) {
    const auto folder = makeFolder("ten");
    std::vector<std::unique_ptr<Program>> starts;
    for (int i = 0; i < 10; ++i) {
        starts.push_back(
            std::make_unique<Program>(Arguments{BLANKWELL_APPLICATION, requestUrl(folder, "txt")}));
    }
    EXPECT_TRUE(eventually([&] { return filesIn(folder) >= 10; }));
    EXPECT_FALSE(eventually([&] { return filesIn(folder) > 10; }, std::chrono::seconds(1)));
}

TEST_F(ApplicationTest, ARequestToAnAbsentApplicationStartsItByTheServiceFile) {
    const auto services = makeFolder(".local/share/dbus-1/services");
    std::filesystem::copy(BLANKWELL_SERVICE_FILE, services.path());
    outputOf({"busctl", "--user", "call", "org.freedesktop.DBus", "/org/freedesktop/DBus",
              "org.freedesktop.DBus", "ReloadConfig"});
    const auto folder = makeFolder("absent");
    outputOf({"busctl", "--user", "call", busName, "/app/blankwell/BlankwellPlus",
              "org.freedesktop.Application", "Open", "asa{sv}", "1", requestUrl(folder, "md"),
              "0"});
    EXPECT_TRUE(eventually(
        [&] { return std::filesystem::exists(folder.appending("Untitled.md").path()); }));
    EXPECT_THAT(windowTitles(), Not(testing::Contains("Blankwell+")));
    outputOf({"busctl", "--user", "call", busName, "/app/blankwell/BlankwellPlus",
              "org.freedesktop.Application", "ActivateAction", "sava{sv}", "quick-create", "0",
              "0"});
    EXPECT_TRUE(windowAppears("Create File"));
    const auto process =
        outputOf({"busctl", "--user", "call", "org.freedesktop.DBus", "/org/freedesktop/DBus",
                  "org.freedesktop.DBus", "GetConnectionUnixProcessID", "s", busName});
    outputOf({"kill", "-TERM", process.substr(2, process.size() - 3)});
}

TEST_F(ApplicationTest, ASecondStartWithoutArgumentsShowsTheMainWindow) {
    startInBackground();
    EXPECT_THAT(windowTitles(), Not(testing::Contains("Blankwell+")));
    EXPECT_EQ(statusOf(""), "0");
    EXPECT_TRUE(windowAppears("Blankwell+"));
}

TEST_F(ApplicationTest, ThePanelIsAboveOnEveryDesktopAndInNoTaskBarEachTimeItIsShown) {
    startInBackground();
    for (int times = 0; times < 2; ++times) {
        EXPECT_EQ(statusOf("--action=quick-create"), "0");
        ASSERT_TRUE(windowAppears("Create File"));
        const auto states = statesOf("Create File");
        EXPECT_THAT(states, HasSubstr("_NET_WM_STATE_ABOVE"));
        EXPECT_THAT(states, HasSubstr("_NET_WM_STATE_SKIP_TASKBAR"));
        EXPECT_THAT(states, HasSubstr("_NET_WM_STATE_SKIP_PAGER"));
        EXPECT_THAT(states, HasSubstr("4294967295"));
        ASSERT_TRUE(bringToFront("Create File"));
        type("Escape");
        ASSERT_TRUE(windowIsGone("Create File"));
    }
}

TEST_F(ApplicationTest, TheHotKeyOpensThePanelWithTheKeyboard) {
    startInBackground();
    EXPECT_TRUE(eventually([] {
        type("ctrl+alt+n");
        const auto titles = windowTitles();
        return std::ranges::find(titles, "Create File") != titles.end();
    }));
    type("Escape");
    EXPECT_TRUE(windowIsGone("Create File"));
}

TEST_F(ApplicationTest, AfterAnAlertThePanelHasTheKeyboardAgain) {
    startInBackground();
    EXPECT_EQ(statusOf("--action=quick-create"), "0");
    ASSERT_TRUE(windowAppears("Create File"));
    ASSERT_TRUE(bringToFront("Create File"));
    EXPECT_EQ(statusOf("'blankwellplus://create?type=none&directory=/'"), "0");
    ASSERT_TRUE(windowAppears("Could not create file"));
    ASSERT_TRUE(bringToFront("Could not create file"));
    type("Return");
    ASSERT_TRUE(windowIsGone("Could not create file"));
    EXPECT_TRUE(eventually([] {
        return outputOf({"xdotool", "getactivewindow", "getwindowname"}) == "Create File\n";
    }));
}

TEST_F(ApplicationTest, WithoutAStatusBarTheMainWindowOpensWhereItIsTheOnlyWayIn) {
    settings->appPresence.set(AppPresence::menuBarOnly);
    startInBackground();
    ASSERT_TRUE(windowAppears("Blankwell+"));
    EXPECT_THAT(statesOf("Blankwell+"), HasSubstr("_NET_WM_STATE_SKIP_TASKBAR"));
    EXPECT_EQ(logged("[StatusItem] The desktop shows no status items"), 1);
}

TEST_F(ApplicationTest, AStatusBarThatIsMissingStillOpensTheWindowAgainAndIsLoggedNoMore) {
    settings->appPresence.set(AppPresence::menuBarOnly);
    startInBackground();
    ASSERT_TRUE(windowAppears("Blankwell+"));
    settings->appPresence.set(AppPresence::dockOnly);
    ASSERT_TRUE(eventually([] {
        return statesOf("Blankwell+").find("_NET_WM_STATE_SKIP_TASKBAR") == std::string::npos;
    }));
    ASSERT_TRUE(closeMainWindow());
    settings->appPresence.set(AppPresence::menuBarOnly);
    EXPECT_TRUE(windowAppears("Blankwell+"));
    EXPECT_EQ(logged("[StatusItem] The desktop shows no status items"), 1);
}

TEST_F(ApplicationTest, AtTheCornerOfTheSecondMonitorThePanelKeepsItsMarginsThere) {
    outputOf({"xrandr", "--setmonitor", "left", "640/160x800/200+0+0", "screen"});
    outputOf({"xrandr", "--setmonitor", "right", "640/160x700/200+640+0", "none"});
    startInBackground();
    outputOf({"xdotool", "mousemove", "640", "699"});
    EXPECT_EQ(statusOf("--action=quick-create"), "0");
    ASSERT_TRUE(windowAppears("Create File"));
    // 12 points from the left edge, and 12 above the bottom one at 700.
    const auto place = [] {
        return outputOf({"xdotool", "getwindowgeometry", windowNumber("Create File")});
    };
    EXPECT_TRUE(eventually([&] { return place().find("Position: 652,88 ") != std::string::npos; }))
        << place();
    EXPECT_THAT(place(), HasSubstr("Geometry: 560x600"));
}

TEST_F(ApplicationTest, AChangeOfPresenceByAnotherProcessReachesTheShownWindow) {
    start();
    ASSERT_TRUE(windowAppears("Blankwell+"));
    EXPECT_THAT(statesOf("Blankwell+"), Not(HasSubstr("_NET_WM_STATE_SKIP_TASKBAR")));
    settings->appPresence.set(AppPresence::menuBarOnly);
    EXPECT_TRUE(eventually([] {
        return statesOf("Blankwell+").find("_NET_WM_STATE_SKIP_TASKBAR") != std::string::npos;
    }));
    settings->appPresence.set(AppPresence::dockOnly);
    EXPECT_TRUE(eventually([] {
        return statesOf("Blankwell+").find("_NET_WM_STATE_SKIP_TASKBAR") == std::string::npos;
    }));
}

TEST_F(ApplicationTest, AStatusBarThatStartsLaterOrAnewShowsTheItem) {
    settings->appPresence.set(AppPresence::menuBarOnly);
    startInBackground();
    for (int times = 0; times < 2; ++times) {
        const Program bar({"xfce4-panel", "--disable-wm-check"});
        EXPECT_TRUE(
            eventually([] { return isOnBus(barName) && ShownStatusItem::find().has_value(); }));
    }
}

TEST_F(ApplicationTest, UserInterfaceTestsSeeNoStatusItemAndARegularApplication) {
    settings->appPresence.set(AppPresence::menuBarOnly);
    ::setenv("BLANKWELL_UI_TESTING", "1", 1);
    start();
    ::unsetenv("BLANKWELL_UI_TESTING");
    ASSERT_TRUE(windowAppears("Blankwell+"));
    EXPECT_THAT(statesOf("Blankwell+"), Not(HasSubstr("_NET_WM_STATE_SKIP_TASKBAR")));
}

TEST_F(ApplicationTest, TheEndOfTheSessionEndsItInOrder) {
    startInBackground();
    EXPECT_EQ(statusOf("--action=quick-create"), "0");
    ASSERT_TRUE(windowAppears("Create File"));
    EXPECT_EQ(application->terminate(), 0);
    application.reset();
    EXPECT_TRUE(windowIsGone("Create File"));
}

TEST_F(ApplicationTest, WhatComesInAfterTheEventLoopIsDoneOrNobodyHasIt) {
    const PrivateBus bus;
    BusPeer caller("app.blankwell.Caller", [](auto*) {});
    const auto folder = makeFolder("late");
    startInBackground();
    EXPECT_EQ(statusOf("--action=quick-create"), "0");
    ASSERT_TRUE(windowAppears("Create File"));

    bus.hang();
    std::optional<std::string> answer;
    require(sd_bus_call_method_async(caller.bus(), nullptr, busName, "/app/blankwell/BlankwellPlus",
                                     "org.freedesktop.Application", "Open", noteAnswer, &answer,
                                     "asa{sv}", 1, requestUrl(folder, "md").c_str(), 0),
            "no request");
    require(sd_bus_flush(caller.bus()), "no request");
    ::kill(application->process(), SIGTERM);
    // The keys are given back after the last round of the event loop, and before the name.
    RivalProgram rival;
    ASSERT_TRUE(eventually([&] { return rival.grab(keyN, x11ControlOption); }));
    bus.goOn();

    ASSERT_TRUE(eventually([&] {
        caller.process();
        return answer.has_value();
    }));
    EXPECT_THAT(*answer, testing::AnyOf("", SD_BUS_ERROR_SERVICE_UNKNOWN));
    EXPECT_EQ(application->exitStatus(), 0);
    EXPECT_EQ(filesIn(folder), answer == "" ? 1 : 0);
}

TEST_F(ApplicationTest, WithHotKeysItOutlivesItsLastWindow) {
    start();
    ASSERT_TRUE(closeMainWindow());
    EXPECT_FALSE(eventually([] { return !isRunning(); }, std::chrono::seconds(1)));
}

TEST_F(ApplicationWithoutHotKeysTest, ItEndsWithItsLastWindow) {
    start();
    ASSERT_TRUE(closeMainWindow());
    EXPECT_TRUE(eventually([] { return !isRunning(); }));
}

TEST_F(ApplicationWithoutHotKeysTest, WithAStatusItemItOutlivesItsLastWindow) {
    settings->appPresence.set(AppPresence::menuBarOnly);
    settings->hasCompletedOnboarding.set(true);
    const Program bar({"xfce4-panel", "--disable-wm-check"});
    start();
    ASSERT_TRUE(eventually([] { return ShownStatusItem::find().has_value(); }));
    ASSERT_TRUE(bringToFront("Blankwell+"));
    ASSERT_TRUE(closeMainWindow());
    EXPECT_FALSE(eventually([] { return !isRunning(); }, std::chrono::seconds(1)));
}

TEST_F(ApplicationTest, WrongArgumentsAreRefused) {
    EXPECT_EQ(statusOf("--no-such-option"), "2");
}

} // namespace
} // namespace blankwell
