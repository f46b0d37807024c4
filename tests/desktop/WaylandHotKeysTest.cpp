#include "desktop/Desktop.h"
#include "desktop/PrivateBus.h"
#include "desktop/Program.h"
#include "desktop/ScriptedPortal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>

namespace blankwell {
namespace {

constexpr auto panelTitle = "Create File";

bool hasPanel() {
    const auto titles = windowTitles();
    return std::ranges::find(titles, panelTitle) != titles.end();
}

/// The application in a session that calls itself a Wayland one, on the X server that such a
/// session has for old programs.
struct WaylandHotKeysTest : testing::Test {
    bool becomes(const std::function<bool()>& condition) {
        return eventually([&] {
            portal.process();
            return condition();
        });
    }

    PrivateBus bus;
    ScriptedPortal portal;
    Program application{{"env", "XDG_SESSION_TYPE=wayland", BLANKWELL_APPLICATION, "--background"}};
};

TEST_F(WaylandHotKeysTest, TheShortcutOfThePortalOpensThePanel) {
    ASSERT_TRUE(becomes([&] { return portal.bindings == 1; }));
    EXPECT_EQ(
        portal.bound,
        (BoundShortcuts{{"CTRL+ALT+n",
                         {{"description", "Create File"}, {"preferred_trigger", "CTRL+ALT+n"}}}}));
    EXPECT_FALSE(hasPanel());
    portal.activate("CTRL+ALT+n");
    EXPECT_TRUE(becomes(hasPanel));
}

TEST_F(WaylandHotKeysTest, NoKeyIsTakenFromTheXServer) {
    ASSERT_TRUE(becomes([&] { return portal.bindings == 1; }));
    for (int times = 0; times < 20; ++times) {
        type("ctrl+alt+n");
        portal.process();
    }
    EXPECT_FALSE(eventually(hasPanel, std::chrono::milliseconds(500)));
}

TEST_F(WaylandHotKeysTest, AChangeOfTheSettingsIsAnotherSet) {
    ASSERT_TRUE(becomes([&] { return portal.bindings == 1; }));
    makeSettings("new", R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict>)"
                        "<key>enabledFileTypeIDs</key><array><string>md</string></array>"
                        "<key>fileTypeShortcuts</key><data>"
                        "eyJtZCI6eyJrZXlDb2RlIjo0NiwiY2FyYm9uTW9kaWZpZXJzIjo2MTQ0fX0="
                        "</data></dict></plist>");
    // In one step, as settings are stored: half a file would be read as a damaged one.
    const auto folder = desktopHome().appending(".config");
    std::filesystem::rename(
        folder.appending("new").path(),
        folder.appending("BLNKWLPLUS.app.blankwell.BlankwellPlus.plist").path());
    EXPECT_TRUE(becomes([&] { return portal.bound.contains("CTRL+ALT+m"); }));
    EXPECT_EQ(portal.bound["CTRL+ALT+m"]["description"], "Create Markdown File");
    EXPECT_THAT(portal.closed, testing::Not(testing::IsEmpty()));
}

} // namespace
} // namespace blankwell
