#include "shell/BlankwellSelfUpdater.h"

#include "support/FakeBundle.h"
#include "support/FakeMainQueue.h"
#include "support/FakeUpdaters.h"

#include <gmock/gmock.h>

#include <memory>

namespace blankwell {
namespace {

using testing::ElementsAre;

struct BlankwellSelfUpdaterTest : testing::Test {
    BlankwellSelfUpdaterTest() {
        bundle.info = {{"SUFeedURL", "https://example.org/appcast.xml"}, {"SUPublicEDKey", "key"}};
    }

    BlankwellSelfUpdater& make() {
        updater = std::make_unique<BlankwellSelfUpdater>(bundle, updaters, queue);
        return *updater;
    }

    FakeBundle bundle;
    FakeUpdaters updaters;
    FakeMainQueue queue;
    std::unique_ptr<BlankwellSelfUpdater> updater;
};

TEST_F(BlankwellSelfUpdaterTest, AUsableConfigurationStartsAnUpdater) {
    make();
    EXPECT_EQ(updaters.started, 1);
    EXPECT_NE(updater->updaterController(), nullptr);
    EXPECT_EQ(updater->configuration().publicEDKey, "key");
    EXPECT_FALSE(updater->canCheckForUpdates.get());
}

TEST_F(BlankwellSelfUpdaterTest, AFeedWithoutEncryptionYieldsNoUpdater) {
    bundle.info["SUFeedURL"] = "http://example.org/appcast.xml";
    make();
    updater->checkForUpdates();
    queue.run();
    EXPECT_EQ(updaters.started, 0);
    EXPECT_EQ(updater->updaterController(), nullptr);
    EXPECT_FALSE(updater->canCheckForUpdates.get());
}

TEST_F(BlankwellSelfUpdaterTest, TheStateAtTheStartArrivesOnTheMainQueue) {
    updaters.canCheck = true;
    make();
    EXPECT_FALSE(updater->canCheckForUpdates.get());
    queue.run();
    EXPECT_TRUE(updater->canCheckForUpdates.get());
}

TEST_F(BlankwellSelfUpdaterTest, ChangesAreFollowedAndAnnounced) {
    make();
    queue.run();
    std::vector<bool> announced;
    const auto changes = updater->objectWillChange().observeChanges(
        [&] { announced.push_back(updater->canCheckForUpdates.get()); });
    updaters.setCanCheckForUpdates(true);
    EXPECT_THAT(announced, ElementsAre());
    queue.run();
    EXPECT_TRUE(updater->canCheckForUpdates.get());
    updaters.setCanCheckForUpdates(false);
    queue.run();
    EXPECT_FALSE(updater->canCheckForUpdates.get());
    EXPECT_THAT(announced, ElementsAre(false, true));
}

TEST_F(BlankwellSelfUpdaterTest, AReportThatArrivesTooLateDoesNothing) {
    make();
    updaters.setCanCheckForUpdates(true);
    updater.reset();
    queue.run();
    EXPECT_EQ(updaters.observer, nullptr);
}

TEST_F(BlankwellSelfUpdaterTest, CheckingIsPassedOn) {
    make().checkForUpdates();
    EXPECT_EQ(updaters.checks, 1);
}

} // namespace
} // namespace blankwell
