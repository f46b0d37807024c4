#include "app/ApplicationMenus.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

using enum ApplicationCommand;
using Command = MenuCommand<ApplicationCommand>;
using Items = Menu<ApplicationCommand>;

const Command uninstallItem{"Uninstall Blankwell+...", {}, true, uninstall};
const Command quitItem{"Quit Blankwell+", {}, true, quit, KeyEquivalent{'q'}};

const ApplicationMenu helpMenu{
    "Help",
    {},
    {
        Command{"Blankwell+ Help", {}, true, showHelp, KeyEquivalent{.key = '/', .shift = true}},
        Command{"Show Welcome Walkthrough", {}, true, showWelcomeWalkthrough},
    }};

TEST(ApplicationMenusTest, AreTheApplicationsAndHelpAndNoneThatMakesAnythingNew) {
    for (const bool canCheck : {true, false}) {
        const ApplicationMenu application{
            "Blankwell+",
            {},
            {Command{"Check for Updates...", {}, canCheck, checkForUpdates}, MenuSeparator{},
             uninstallItem, quitItem}};
        EXPECT_EQ(makeApplicationMenus(canCheck),
                  (std::vector<ApplicationMenu>{application, helpMenu}));
    }
}

TEST(ApplicationMenusTest, ABuildWithoutUpdatesHasNoItemForThem) {
    const ApplicationMenu application{"Blankwell+", {}, {MenuSeparator{}, uninstallItem, quitItem}};
    EXPECT_EQ(makeApplicationMenus(std::nullopt),
              (std::vector<ApplicationMenu>{application, helpMenu}));
}

} // namespace
} // namespace blankwell
