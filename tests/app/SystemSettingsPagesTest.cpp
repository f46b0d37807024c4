#include "app/SystemSettingsPages.h"

#include "support/FakeApplication.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using testing::ElementsAre;

struct SystemSettingsPagesTest : testing::Test {
    EventLog events;
    FakeWorkspace desktop{events};
    bool canShow = true;
    SystemSettingsPages pages{desktop, [this] {
                                  events.emplace_back("extension page");
                                  return canShow;
                              }};
};

TEST_F(SystemSettingsPagesTest, TheSettingsOfExtensionsAreThePageOfTheApplication) {
    EXPECT_TRUE(pages.open("x-apple.systempreferences:com.apple.ExtensionsPreferences"));
    EXPECT_TRUE(pages.open("x-apple.systempreferences:com.apple.preferences.extensions"));
    EXPECT_THAT(events, ElementsAre("extension page", "extension page"));
    canShow = false;
    EXPECT_FALSE(pages.open("x-apple.systempreferences:com.apple.ExtensionsPreferences"));
}

TEST_F(SystemSettingsPagesTest, EverythingElseGoesToTheDesktop) {
    desktop.handledSchemes = {"https"};
    EXPECT_TRUE(pages.open("https://example.org"));
    EXPECT_FALSE(pages.open("x-apple.systempreferences:com.apple.Displays"));
    pages.reveal(FileUrl("/a"));
    EXPECT_THAT(events,
                ElementsAre("open https://example.org",
                            "open x-apple.systempreferences:com.apple.Displays", "reveal /a"));
}

} // namespace
} // namespace blankwell
