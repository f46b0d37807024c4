#include "app/AppDelegate.h"

#include "support/FakePresenceController.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Notes in the order of events when keys are taken and given back.
class NotedHotKeys : public FakeHotKeyService {
public:
    explicit NotedHotKeys(EventLog& events) : events_(events) {}

    std::expected<HotKeyReference, HotKeyStatus> registerHotKey(std::uint32_t keyCode,
                                                                std::uint32_t carbonModifiers,
                                                                EventHotKeyID id) override {
        events_.emplace_back("take key");
        return FakeHotKeyService::registerHotKey(keyCode, carbonModifiers, id);
    }

    HotKeyStatus unregisterHotKey(HotKeyReference hotKey) override {
        events_.emplace_back("give key back");
        return FakeHotKeyService::unregisterHotKey(hotKey);
    }

private:
    EventLog& events_;
};

struct AppDelegateTest : testing::Test, FakePresenceController {
    AppDelegateTest() { settings.appPresence.set(AppPresence::menuBarOnly); }

    NotedHotKeys notedHotKeys{events};
    DesktopCreationController creation{servicesWith(notedHotKeys)};
    AppDelegate delegate{{
        .presence = presence,
        .selfUpdater = updater(),
        .creation = creation,
    }};
};

TEST_F(AppDelegateTest, LaunchingShowsTheApplicationAndThenTakesTheKeys) {
    delegate.applicationDidFinishLaunching();
    EXPECT_THAT(events, ElementsAre("show status item", "accessory", "take key"));
}

TEST_F(AppDelegateTest, ThePresenceKnowsTheUpdater) {
    delegate.applicationDidFinishLaunching();
    presence.perform(StatusMenuCommand::checkForUpdates);
    EXPECT_EQ(updaters.checks, 1);
}

TEST_F(AppDelegateTest, TerminatingGivesTheKeysBackHidesThePanelAndThenRemovesTheItem) {
    delegate.applicationDidFinishLaunching();
    creation.showQuickCreatePanel();
    events.clear();
    delegate.applicationWillTerminate();
    EXPECT_THAT(events, ElementsAre("give key back", "hide panel", "remove status item"));
    EXPECT_THAT(notedHotKeys.registered, IsEmpty());
    EXPECT_EQ(settings.quickCreateShortcut.observerCount(), 0U);
}

TEST_F(AppDelegateTest, TheSubscriptionsEndBeforeTheKeysAreGivenBack) {
    delegate.applicationDidFinishLaunching();
    settings.setEnabled(false, "md"); // waits in the queue when the end comes
    delegate.applicationWillTerminate();
    events.clear();
    mainQueue.run();
    settings.setEnabled(true, "md");
    mainQueue.run();
    EXPECT_THAT(events, IsEmpty());
    EXPECT_THAT(notedHotKeys.registered, IsEmpty());
}

TEST_F(AppDelegateTest, TerminatingTwiceIsTerminatingOnce) {
    delegate.applicationDidFinishLaunching();
    delegate.applicationWillTerminate();
    events.clear();
    delegate.applicationWillTerminate();
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(AppDelegateTest, APanelThatWasNeverMadeIsNotHidden) {
    delegate.applicationDidFinishLaunching();
    events.clear();
    delegate.applicationWillTerminate();
    EXPECT_THAT(events, ElementsAre("give key back", "remove status item"));
}

} // namespace
} // namespace blankwell
