#include "settings/AppPresence.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using enum AppPresence;

TEST(AppPresenceTest, StandsInTheOrderOfThePicker) {
    EXPECT_THAT(allAppPresences, testing::ElementsAre(dockAndMenuBar, dockOnly, menuBarOnly));
}

TEST(AppPresenceTest, HasItsRawValuesTitlesAndDescriptions) {
    EXPECT_EQ(rawValue(dockAndMenuBar), "dockAndMenuBar");
    EXPECT_EQ(rawValue(dockOnly), "dockOnly");
    EXPECT_EQ(rawValue(menuBarOnly), "menuBarOnly");
    EXPECT_EQ(title(dockAndMenuBar), "Dock + Menu");
    EXPECT_EQ(title(dockOnly), "Dock");
    EXPECT_EQ(title(menuBarOnly), "Menu Bar");
    EXPECT_EQ(description(dockAndMenuBar), "Show Blankwell+ in the Dock and the menu bar.");
    EXPECT_EQ(description(dockOnly), "Show Blankwell+ in the Dock only.");
    EXPECT_EQ(description(menuBarOnly), "Keep Blankwell+ available from the menu bar only.");
}

TEST(AppPresenceTest, DecodesOnlyItsExactRawValues) {
    for (const auto presence : allAppPresences) {
        EXPECT_EQ(appPresence(rawValue(presence)), presence);
    }
    EXPECT_EQ(appPresence("DockOnly"), std::nullopt);
    EXPECT_EQ(appPresence(""), std::nullopt);
}

TEST(AppPresenceTest, TheStatusItemIsMissingInTheDockOnlyAndTheTaskBarEntryInTheMenuBarOnly) {
    EXPECT_TRUE(showsStatusItem(dockAndMenuBar));
    EXPECT_FALSE(showsStatusItem(dockOnly));
    EXPECT_TRUE(showsStatusItem(menuBarOnly));
    EXPECT_FALSE(isAccessory(dockAndMenuBar));
    EXPECT_FALSE(isAccessory(dockOnly));
    EXPECT_TRUE(isAccessory(menuBarOnly));
}

} // namespace
} // namespace blankwell
