#include "shell/AppPresenceController.h"

#include "shell/StatusIcon.h"
#include "support/FakePresenceController.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using enum AppPresence;

using Command = MenuCommand<std::function<void()>>;
using Creation = Submenu<std::function<void()>>;

const Command* findCommand(const ActionMenu& menu, std::string_view title) {
    for (const auto& item : menu) {
        const auto* const command = std::get_if<Command>(&item);
        if (command != nullptr && command->title == title) {
            return command;
        }
    }
    return nullptr;
}

const ActionMenu& submenu(const ActionMenu& menu, std::string_view title) {
    for (const auto& item : menu) {
        const auto* const found = std::get_if<Creation>(&item);
        if (found != nullptr && found->title == title) {
            return found->items;
        }
    }
    throw std::out_of_range("no such submenu");
}

struct AppPresenceControllerTest : testing::Test, FakePresenceController {
    void start() { presence.start(&updater()); }

    /// Assigns the presence as the user's choice and lets it take effect.
    void choose(AppPresence newPresence) {
        settings.appPresence.set(newPresence);
        mainQueue.run();
    }

    FakeStatusBar::Shown& item() { return *statusBar.items.at(0); }

    void click(std::string_view title) { findCommand(item().menu, title)->action(); }

    std::size_t subscriptions() {
        return settings.appPresence.observerCount() + settings.enabledFileTypeIDs.observerCount() +
               settings.fileTypeOrder.observerCount() +
               updater().objectWillChange().observerCount();
    }
};

TEST_F(AppPresenceControllerTest, TheDockOnlyHasATaskBarEntryAndNoStatusItem) {
    start();
    EXPECT_THAT(statusBar.items, IsEmpty());
    EXPECT_EQ(applicationPresence.policy, ActivationPolicy::regular);
}

TEST_F(AppPresenceControllerTest, TheStoredPresenceIsAppliedAtTheStart) {
    settings.appPresence.set(menuBarOnly);
    start();
    EXPECT_THAT(statusBar.items, SizeIs(1));
    EXPECT_EQ(applicationPresence.policy, ActivationPolicy::accessory);
}

TEST_F(AppPresenceControllerTest, FromBothToTheDockTheStatusItemGoesAndThePolicyStays) {
    settings.appPresence.set(dockAndMenuBar);
    start();
    EXPECT_THAT(statusBar.items, SizeIs(1));
    EXPECT_EQ(applicationPresence.policy, ActivationPolicy::regular);
    choose(dockOnly);
    EXPECT_THAT(statusBar.items, IsEmpty());
    EXPECT_EQ(applicationPresence.policy, ActivationPolicy::regular);
}

TEST_F(AppPresenceControllerTest, FromTheDockToTheMenuBarANewStatusItemComes) {
    start();
    choose(menuBarOnly);
    const StatusItemConfiguration expected{
        .length = 26,
        .image = statusIcon(),
        .imageScaling = StatusItemConfiguration::ImageScaling::proportionallyDown,
        .imagePosition = StatusItemConfiguration::ImagePosition::imageOnly,
        .toolTip = "Blankwell+",
    };
    EXPECT_EQ(item().configuration, expected);
    EXPECT_THAT(item().menu, Not(IsEmpty()));
    EXPECT_EQ(applicationPresence.policy, ActivationPolicy::accessory);
}

TEST_F(AppPresenceControllerTest, ApplyingTwiceKeepsTheItemAndRebuildsItsMenu) {
    start();
    presence.apply(menuBarOnly);
    presence.apply(menuBarOnly);
    EXPECT_EQ(std::ranges::count(events, "show status item"), 1);
    EXPECT_THAT(statusBar.items, SizeIs(1));
    EXPECT_EQ(item().menusSet, 2);
}

TEST_F(AppPresenceControllerTest, DisablingACategoryTakesItOutOfBothSubmenus) {
    settings.appPresence.set(menuBarOnly);
    settings.enabledFileTypeIDs.set({"txt", "py", "docx"});
    start();
    settings.setEnabled(false, "py");
    mainQueue.run();
    for (const auto* title : {"Create on Desktop", "Create in Finder Folder"}) {
        const auto& items = submenu(item().menu, title);
        ASSERT_EQ(items.size(), 5U);
        EXPECT_EQ(std::get<MenuHeader>(items[0]).title, "Plain Text");
        EXPECT_TRUE(std::holds_alternative<MenuSeparator>(items[2]));
        EXPECT_EQ(std::get<MenuHeader>(items[3]).title, "Office");
    }
}

TEST_F(AppPresenceControllerTest, TheMenuFollowsTheOrderOfTheTypes) {
    settings.appPresence.set(menuBarOnly);
    start();
    settings.fileTypeOrder.set({"md", "txt"});
    mainQueue.run();
    EXPECT_EQ(std::get<Command>(submenu(item().menu, "Create on Desktop").at(1)).title, "Markdown");
}

TEST_F(AppPresenceControllerTest, AnotherSettingDoesNotRebuildTheMenu) {
    settings.appPresence.set(menuBarOnly);
    start();
    mainQueue.run();
    const auto before = item().menusSet;
    settings.setShortcut(defaultQuickCreateShortcut, "md");
    mainQueue.run();
    EXPECT_EQ(item().menusSet, before);
}

TEST_F(AppPresenceControllerTest, AChangeWithoutAStatusItemBuildsNothing) {
    start();
    settings.fileTypeOrder.set({"md"});
    mainQueue.run();
    EXPECT_THAT(statusBar.items, IsEmpty());
}

TEST_F(AppPresenceControllerTest, CheckingForUpdatesIsEnabledWhileItIsPossible) {
    settings.appPresence.set(menuBarOnly);
    start();
    mainQueue.run();
    EXPECT_FALSE(findCommand(item().menu, "Check for Updates...")->isEnabled);
    updaters.setCanCheckForUpdates(true);
    mainQueue.run();
    EXPECT_TRUE(findCommand(item().menu, "Check for Updates...")->isEnabled);
}

TEST_F(AppPresenceControllerTest, WithoutAUsableConfigurationThereIsNoItemForUpdates) {
    bundle.info["SUFeedURL"] = "http://example.org/appcast.xml";
    settings.appPresence.set(menuBarOnly);
    start();
    EXPECT_EQ(findCommand(item().menu, "Check for Updates..."), nullptr);
}

TEST_F(AppPresenceControllerTest, WithoutAnUpdaterThereIsNoItemForUpdates) {
    settings.appPresence.set(menuBarOnly);
    presence.start(nullptr);
    EXPECT_EQ(findCommand(item().menu, "Check for Updates..."), nullptr);
    presence.perform(StatusMenuCommand::checkForUpdates);
    EXPECT_EQ(updaters.checks, 0);
}

TEST_F(AppPresenceControllerTest, UnderUserInterfaceTestsThereIsNeverAStatusItem) {
    environment.variables["BLANKWELL_UI_TESTING"] = "1";
    settings.appPresence.set(menuBarOnly);
    start();
    EXPECT_EQ(applicationPresence.policy, ActivationPolicy::regular);
    choose(dockAndMenuBar);
    choose(menuBarOnly);
    EXPECT_THAT(statusBar.items, IsEmpty());
    EXPECT_EQ(applicationPresence.policy, ActivationPolicy::regular);
    EXPECT_EQ(subscriptions(), 0U);
    presence.perform(StatusMenuCommand::checkForUpdates);
    EXPECT_EQ(updaters.checks, 0);
}

TEST_F(AppPresenceControllerTest, OtherValuesOfTheTestVariableChangeNothing) {
    for (const auto* value : {"0", "", "true", "11", " 1"}) {
        environment.variables["BLANKWELL_UI_TESTING"] = value;
        settings.appPresence.set(menuBarOnly);
        start();
        EXPECT_THAT(statusBar.items, SizeIs(1)) << value;
        presence.stop();
    }
}

TEST_F(AppPresenceControllerTest, TheItemsOfTheMenuDoWhatTheySay) {
    settings.appPresence.set(menuBarOnly);
    windows.titles = {"Blankwell+"};
    start();
    events.clear();
    click("Quick Create...");
    EXPECT_THAT(events, ElementsAre("place panel", "show panel", "activate"));
    events.clear();
    click("Open Blankwell+");
    EXPECT_THAT(events, ElementsAre("front Blankwell+", "activate"));
    events.clear();
    click("Uninstall Blankwell+...");
    click("Quit Blankwell+");
    EXPECT_THAT(events, ElementsAre("uninstall", "terminate"));
    click("Check for Updates...");
    EXPECT_EQ(updaters.checks, 1);
}

TEST_F(AppPresenceControllerTest, TheItemsOfTheSubmenusCreateAtTheirDestinations) {
    files.addFolder("/Users/u/Projects");
    frontFolder.answer = "/Users/u/Projects";
    settings.appPresence.set(menuBarOnly);
    start();
    std::get<Command>(submenu(item().menu, "Create on Desktop").at(1)).action();
    EXPECT_THAT(events, Contains("reveal /Users/u/Desktop/Untitled.txt"));
    EXPECT_THAT(events, Not(Contains("reveal /Users/u/Projects/Untitled.txt")));
    std::get<Command>(submenu(item().menu, "Create in Finder Folder").at(1)).action();
    EXPECT_THAT(events, Contains("reveal /Users/u/Projects/Untitled.txt"));
}

TEST_F(AppPresenceControllerTest, StoppingRemovesTheItemAndFollowsNothing) {
    settings.appPresence.set(menuBarOnly);
    start();
    EXPECT_EQ(subscriptions(), 4U);
    settings.fileTypeOrder.set({"md"});
    presence.stop();
    EXPECT_EQ(subscriptions(), 0U);
    choose(dockAndMenuBar);
    EXPECT_THAT(statusBar.items, IsEmpty());
    presence.perform(StatusMenuCommand::checkForUpdates);
    EXPECT_EQ(updaters.checks, 0);
}

TEST_F(AppPresenceControllerTest, ThousandsOfChangesLeaveNothingBehind) {
    settings.appPresence.set(menuBarOnly);
    settings.enabledFileTypeIDs.set({"txt"});
    start();
    controller.start();
    mainQueue.run();
    const auto menusBefore = item().menusSet;
    const auto subscriptionsBefore = subscriptions();
    constexpr int changes = 10'000;
    for (int i = 0; i < changes; ++i) {
        settings.setEnabled(i % 2 == 1, "md");
        mainQueue.run();
    }
    EXPECT_EQ(item().menusSet - menusBefore, changes);
    EXPECT_EQ(subscriptions(), subscriptionsBefore);
    EXPECT_THAT(hotKeys.registered, SizeIs(1));
    EXPECT_THAT(hotKeys.handlers, SizeIs(1));
    EXPECT_THAT(statusBar.items, SizeIs(1));
    EXPECT_THAT(mainQueue.pending, IsEmpty());
}

} // namespace
} // namespace blankwell
