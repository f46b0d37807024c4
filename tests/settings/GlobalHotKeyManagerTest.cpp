#include "settings/GlobalHotKeyManager.h"

#include "support/FakeHotKeyService.h"
#include "support/FakeLog.h"
#include "support/FakeMainQueue.h"

#include <gmock/gmock.h>

#include <memory>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr QuickCreateShortcut controlOptionN = defaultQuickCreateShortcut;
constexpr QuickCreateShortcut commandJ{38, 0x100};
constexpr QuickCreateShortcut commandK{40, 0x100};
constexpr QuickCreateShortcut commandL{37, 0x100};
constexpr std::uint32_t ourSignature = 0x4257484B; // "BWHK"

FakeLog::Line registered(std::string_view name) {
    return {LogLevel::notice, "GlobalHotKey", "Registered " + std::string(name) + " hot key"};
}

FakeLog::Line failed(std::string message) {
    return {LogLevel::error, "GlobalHotKey", std::move(message)};
}

struct GlobalHotKeyManagerTest : testing::Test {
    GlobalHotKeyManagerTest() {
        manager = std::make_unique<GlobalHotKeyManager>(
            service, queue, log,
            [this](const HotKeyAction& action) { dispatched.push_back(action); });
    }

    /// Presses `shortcut` and lets the queue work.
    void press(const QuickCreateShortcut& shortcut) {
        EXPECT_EQ(service.press(shortcut.keyCode, shortcut.carbonModifiers).value_or(noErr), noErr);
        queue.run();
    }

    /// Delivers a press that reads as `id`.
    void deliver(std::expected<EventHotKeyID, HotKeyStatus> id) {
        EXPECT_EQ(service.deliver(FakeHotKeyEvent(id)), noErr);
        queue.run();
    }

    FakeHotKeyService service;
    FakeMainQueue queue;
    FakeLog log;
    std::vector<HotKeyAction> dispatched;
    std::unique_ptr<GlobalHotKeyManager> manager;
};

TEST_F(GlobalHotKeyManagerTest, APressIsDispatchedAsItsAction) {
    manager->registerShortcuts(controlOptionN, {{"md", commandJ}});
    press(controlOptionN);
    press(commandJ);
    EXPECT_THAT(dispatched, ElementsAre(HotKeyAction{HotKeyAction::QuickCreate{}},
                                        HotKeyAction{HotKeyAction::CreateFile{"md"}}));
}

TEST_F(GlobalHotKeyManagerTest, TheHandlerDoesNoWorkItself) {
    manager->registerShortcuts(controlOptionN, {});
    EXPECT_EQ(service.press(45, 0x1800), noErr);
    EXPECT_THAT(dispatched, IsEmpty());
    queue.run();
    EXPECT_THAT(dispatched, SizeIs(1));
}

TEST_F(GlobalHotKeyManagerTest, EveryRegistrationBearsTheSignature) {
    manager->registerShortcuts(controlOptionN, {{"md", commandJ}});
    ASSERT_EQ(service.registered.size(), 2U);
    EXPECT_EQ(service.registered[0].id, (EventHotKeyID{ourSignature, 1}));
    EXPECT_EQ(service.registered[1].id, (EventHotKeyID{ourSignature, 100}));
    EXPECT_EQ(service.registered[1].combination, (FakeHotKeyService::Combination{38, 0x100}));
}

TEST_F(GlobalHotKeyManagerTest, TypesTakeNumbersInTheOrderOfTheirIds) {
    manager->registerShortcuts(controlOptionN,
                               {{"txt", commandJ}, {"json", commandK}, {"md", commandL}});
    EXPECT_THAT(service.registeredIDs(), ElementsAre(1U, 100U, 101U, 102U));
    press(commandK);
    deliver(EventHotKeyID{ourSignature, 101});
    deliver(EventHotKeyID{ourSignature, 102});
    EXPECT_THAT(dispatched, ElementsAre(HotKeyAction{HotKeyAction::CreateFile{"json"}},
                                        HotKeyAction{HotKeyAction::CreateFile{"md"}},
                                        HotKeyAction{HotKeyAction::CreateFile{"txt"}}));
}

TEST_F(GlobalHotKeyManagerTest, ATypeWithTheQuickCreateShortcutIsSkipped) {
    manager->registerShortcuts(controlOptionN, {{"md", controlOptionN}});
    EXPECT_THAT(service.registeredIDs(), ElementsAre(1U));
    EXPECT_EQ(service.registrations, 1);
    EXPECT_THAT(log.lines, ElementsAre(registered("⌃ + ⌥ + N"),
                                       failed("Skipping duplicate ⌃ + ⌥ + N hot key")));
}

TEST_F(GlobalHotKeyManagerTest, ASkippedTypeConsumesItsNumber) {
    manager->registerShortcuts(controlOptionN, {{"css", controlOptionN}, {"md", commandJ}});
    EXPECT_THAT(service.registeredIDs(), ElementsAre(1U, 101U));
}

TEST_F(GlobalHotKeyManagerTest, OfTwoTypesWithOneShortcutTheFirstIdHasIt) {
    manager->registerShortcuts(controlOptionN, {{"txt", commandJ}, {"md", commandJ}});
    press(commandJ);
    EXPECT_THAT(dispatched, ElementsAre(HotKeyAction{HotKeyAction::CreateFile{"md"}}));
}

TEST_F(GlobalHotKeyManagerTest, AShortcutThatIsNotUsableIsPassedOverInSilence) {
    manager->registerShortcuts({45, 0},
                               {{"css", {4294967295, 0x100}}, {"js", {1, 0}}, {"md", commandJ}});
    EXPECT_THAT(service.registeredIDs(), ElementsAre(102U));
    EXPECT_THAT(log.lines, ElementsAre(registered("⌘ + J")));
}

TEST_F(GlobalHotKeyManagerTest, AShortcutThatTheSystemRefusesIsLoggedAndTheOthersRegister) {
    service.failures[{38, 0x100}] = -9878;
    manager->registerShortcuts(controlOptionN, {{"css", commandJ}, {"md", commandK}});
    EXPECT_THAT(service.registeredIDs(), ElementsAre(1U, 101U));
    EXPECT_EQ(log.lines.at(1), failed("Failed to register ⌘ + J hot key: -9878"));
    deliver(EventHotKeyID{ourSignature, 100});
    EXPECT_THAT(dispatched, IsEmpty());
}

TEST_F(GlobalHotKeyManagerTest, ARefusedShortcutStaysTakenForTheOthers) {
    service.failures[{38, 0x100}] = -9878;
    manager->registerShortcuts(controlOptionN, {{"css", commandJ}, {"md", commandJ}});
    EXPECT_EQ(service.registrations, 2);
    EXPECT_EQ(log.lines.back(), failed("Skipping duplicate ⌘ + J hot key"));
}

TEST_F(GlobalHotKeyManagerTest, WithoutAHandlerNothingIsRegisteredUntilTheNextTime) {
    service.failInstallationWith = -9868;
    manager->registerShortcuts(controlOptionN, {});
    EXPECT_EQ(service.registrations, 0);
    EXPECT_THAT(log.lines, ElementsAre(failed("Failed to install hot key handler: -9868")));

    service.failInstallationWith = noErr;
    manager->registerShortcuts(controlOptionN, {});
    EXPECT_THAT(service.registeredIDs(), ElementsAre(1U));
    EXPECT_EQ(service.installations, 2);
}

TEST_F(GlobalHotKeyManagerTest, TheHandlerIsInstalledOnce) {
    for (int i = 0; i < 3; ++i) {
        manager->registerShortcuts(controlOptionN, {});
    }
    manager->unregisterAll();
    EXPECT_EQ(service.installations, 1);
    EXPECT_THAT(service.handlers, SizeIs(1));
}

TEST_F(GlobalHotKeyManagerTest, RegisteringReplacesAllThatWasRegistered) {
    manager->registerShortcuts(controlOptionN, {{"md", commandJ}});
    manager->registerShortcuts(commandJ, {});
    EXPECT_THAT(service.registeredIDs(), ElementsAre(1U));
    press(controlOptionN);
    EXPECT_THAT(dispatched, IsEmpty());
    press(commandJ);
    EXPECT_THAT(dispatched, ElementsAre(HotKeyAction{HotKeyAction::QuickCreate{}}));
}

TEST_F(GlobalHotKeyManagerTest, APressOfAFormerHotKeyDoesNothing) {
    manager->registerShortcuts(controlOptionN, {{"md", commandJ}});
    manager->unregisterAll();
    EXPECT_THAT(service.registered, IsEmpty());
    deliver(EventHotKeyID{ourSignature, 1});
    deliver(EventHotKeyID{ourSignature, 100});
    EXPECT_THAT(dispatched, IsEmpty());
}

TEST_F(GlobalHotKeyManagerTest, AKeyThatCannotBeGivenBackIsForgotten) {
    service.unregistrationStatus = -50;
    manager->registerShortcuts(controlOptionN, {});
    manager->unregisterAll();
    manager->unregisterAll();
    EXPECT_EQ(service.unregistrations, 1);
    EXPECT_THAT(log.lines, SizeIs(1));
}

TEST_F(GlobalHotKeyManagerTest, AForeignPressIsIgnoredAndReportedHandled) {
    manager->registerShortcuts(controlOptionN, {});
    deliver(EventHotKeyID{ourSignature + 1, 1});
    deliver(std::unexpected(-9870));
    deliver(EventHotKeyID{ourSignature, 2});
    EXPECT_THAT(dispatched, IsEmpty());
}

TEST_F(GlobalHotKeyManagerTest, WhatTheSystemRefusesIsPublishedUntilItIsRegistered) {
    service.failures = {{{45, 0x1800}, -9878}, {{38, 0x100}, 1003}};
    manager->registerShortcuts(controlOptionN, {{"css", commandJ}, {"md", commandK}});
    EXPECT_EQ(manager->failures.get(),
              (HotKeyFailures{.quickCreate = -9878, .fileTypes = {{"css", 1003}}}));
    service.failures.clear();
    manager->registerShortcuts(controlOptionN, {{"css", commandJ}, {"md", commandK}});
    EXPECT_EQ(manager->failures.get(), HotKeyFailures{});
}

TEST_F(GlobalHotKeyManagerTest, DuplicatesAndUnusableShortcutsAreNoFailures) {
    manager->registerShortcuts(controlOptionN, {{"css", controlOptionN}, {"md", {1, 0}}});
    EXPECT_EQ(manager->failures.get(), HotKeyFailures{});
}

TEST_F(GlobalHotKeyManagerTest, FailuresAreAnnouncedWhenTheyChangeOnly) {
    std::vector<HotKeyFailures> heard;
    const auto subscription =
        manager->failures.observeChanges([&](const HotKeyFailures& now) { heard.push_back(now); });
    manager->registerShortcuts(controlOptionN, {});
    EXPECT_THAT(heard, IsEmpty());
    service.failures[{45, 0x1800}] = -9878;
    manager->registerShortcuts(controlOptionN, {});
    manager->registerShortcuts(controlOptionN, {});
    EXPECT_THAT(heard, ElementsAre(HotKeyFailures{.quickCreate = -9878}));
    manager->unregisterAll();
    EXPECT_THAT(heard, ElementsAre(HotKeyFailures{.quickCreate = -9878}, HotKeyFailures{}));
}

TEST_F(GlobalHotKeyManagerTest, AHotKeyThatIsLostIsLoggedAndPublishedAndTheOthersWork) {
    manager->registerShortcuts(controlOptionN, {{"css", commandJ}, {"md", commandK}});
    service.lose({38, 0x100}, 1004);
    EXPECT_EQ(log.lines.back(), failed("Lost hot key 100: 1004"));
    EXPECT_EQ(manager->failures.get(), (HotKeyFailures{.fileTypes = {{"css", 1004}}}));
    press(commandK);
    EXPECT_THAT(dispatched, SizeIs(1));
    service.unregistrations = 0;
    manager->unregisterAll();
    EXPECT_EQ(service.unregistrations, 3) << "what is lost is given back all the same";
}

TEST_F(GlobalHotKeyManagerTest, AHotKeyThatComesBackWorksAndIsNoFailureAnyMore) {
    manager->registerShortcuts(controlOptionN, {{"css", commandJ}});
    service.lose({45, 0x1800}, 1007);
    service.lose({38, 0x100}, 1007);
    service.give({45, 0x1800}, "Ctrl+Alt+N");
    EXPECT_EQ(log.lines.back(), (FakeLog::Line{LogLevel::notice, "GlobalHotKey",
                                               "The desktop gives hot key 1: Ctrl+Alt+N"}));
    EXPECT_EQ(manager->failures.get(), (HotKeyFailures{.fileTypes = {{"css", 1007}}}));
    service.give({38, 0x100}, "");
    EXPECT_EQ(manager->failures.get(), HotKeyFailures{});
    press(commandJ);
    EXPECT_THAT(dispatched, SizeIs(1));
}

TEST_F(GlobalHotKeyManagerTest, ALossOfAnothersHotKeyIsIgnored) {
    manager->registerShortcuts(controlOptionN, {});
    service.lossHandler({ourSignature + 1, 1}, 1004);
    service.lossHandler({ourSignature, 2}, 1004);
    EXPECT_EQ(manager->failures.get(), HotKeyFailures{});
}

TEST_F(GlobalHotKeyManagerTest, WhileSuspendedNoKeyIsTaken) {
    manager->registerShortcuts(controlOptionN, {{"md", commandJ}});
    {
        const auto outer = manager->suspend();
        {
            const auto inner = manager->suspend();
            EXPECT_THAT(service.registered, IsEmpty());
        }
        EXPECT_THAT(service.registered, IsEmpty()) << "the outer suspension goes on";
        press(commandJ);
        EXPECT_THAT(dispatched, IsEmpty());
    }
    EXPECT_THAT(service.registeredIDs(), ElementsAre(1U, 100U));
    press(commandJ);
    EXPECT_THAT(dispatched, SizeIs(1));
}

TEST_F(GlobalHotKeyManagerTest, WhatIsGivenDuringASuspensionIsRegisteredAtItsEnd) {
    manager->registerShortcuts(controlOptionN, {{"md", commandJ}});
    {
        const auto suspension = manager->suspend();
        manager->registerShortcuts(commandK, {});
        manager->registerShortcuts(commandL, {});
        EXPECT_THAT(service.registered, IsEmpty());
    }
    ASSERT_EQ(service.registered.size(), 1U);
    EXPECT_EQ(service.registered[0].combination, (FakeHotKeyService::Combination{37, 0x100}));
}

TEST_F(GlobalHotKeyManagerTest, WhatSomebodyTookDuringASuspensionIsAFailureAfterIt) {
    manager->registerShortcuts(controlOptionN, {{"md", commandJ}});
    {
        const auto suspension = manager->suspend();
        service.failures[{38, 0x100}] = -9878;
    }
    EXPECT_THAT(service.registeredIDs(), ElementsAre(1U));
    EXPECT_EQ(manager->failures.get(), (HotKeyFailures{.fileTypes = {{"md", -9878}}}));
}

TEST_F(GlobalHotKeyManagerTest, WhatIsGivenUpDuringASuspensionStaysGivenUp) {
    manager->registerShortcuts(controlOptionN, {});
    {
        const auto suspension = manager->suspend();
        manager->unregisterAll();
    }
    EXPECT_THAT(service.registered, IsEmpty());
}

TEST_F(GlobalHotKeyManagerTest, ASuspensionMayOutliveTheManager) {
    manager->registerShortcuts(controlOptionN, {});
    auto suspension = manager->suspend();
    manager.reset();
    suspension.end();
    EXPECT_THAT(service.registered, IsEmpty());
}

TEST_F(GlobalHotKeyManagerTest, DestroyingGivesBackKeysAndHandlerAndDropsWhatWaits) {
    manager->registerShortcuts(controlOptionN, {{"md", commandJ}});
    EXPECT_EQ(service.press(38, 0x100), noErr);
    manager.reset();
    EXPECT_THAT(service.registered, IsEmpty());
    EXPECT_THAT(service.handlers, IsEmpty());
    queue.run();
    EXPECT_THAT(dispatched, IsEmpty());
}

} // namespace
} // namespace blankwell
