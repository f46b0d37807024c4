#include "app/BlankwellHelpCommands.h"

#include "app/WindowScenes.h"
#include "settings/AppSettings.h"
#include "support/FakeApplication.h"
#include "support/FakeLog.h"
#include "support/FakeUserDefaults.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using testing::ElementsAre;

struct BlankwellHelpCommandsTest : testing::Test {
    EventLog events;
    FakeApplication application{events};
    FakeUserDefaults defaults;
    FakeLog log;
    AppSettings settings{defaults, log};
    BlankwellHelpCommands commands{
        [this](std::string_view id) { events.push_back("open " + std::string(id)); }, settings,
        application};
};

TEST_F(BlankwellHelpCommandsTest, HelpOpensItsWindowInFront) {
    commands.showHelp();
    EXPECT_THAT(events, ElementsAre("open help", "activate"));
}

TEST_F(BlankwellHelpCommandsTest, TheWalkthroughIsShownAgainOverTheMainWindow) {
    settings.hasCompletedOnboarding.set(true);
    const auto watch = settings.hasCompletedOnboarding.observeChanges(
        [this](bool completed) { events.emplace_back(completed ? "completed" : "not completed"); });
    commands.showWelcomeWalkthrough();
    EXPECT_THAT(events, ElementsAre("open main", "not completed", "activate"));
    EXPECT_EQ(defaults.values.at("hasCompletedOnboarding"), PropertyValue(false));
}

TEST(WindowScenesTest, AreTheMainWindowAndTheHelpWindow) {
    EXPECT_EQ(mainWindowScene,
              (WindowScene{"main", "Blankwell+", Size{770, 1155}, Size{720, 520}}));
    EXPECT_EQ(helpWindowScene,
              (WindowScene{"help", "Blankwell+ Help", std::nullopt, std::nullopt}));
}

} // namespace
} // namespace blankwell
