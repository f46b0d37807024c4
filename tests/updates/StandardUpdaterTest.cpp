#include "updates/StandardUpdater.h"

#include "support/FakeLog.h"
#include "support/FakeMainQueue.h"
#include "support/FakeTimer.h"
#include "support/FakeUpdates.h"
#include "support/FakeUserDefaults.h"
#include "updates/UpdateJob.h"

#include <fmt/core.h>
#include <gmock/gmock.h>

namespace blankwell {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr auto feedUrl = "https://example.org/appcast.xml";

std::string feedOf(std::string_view version, std::string_view more = "") {
    return fmt::format(
        R"(<rss xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle"><channel><item>
           <sparkle:version>{}</sparkle:version>{}
           <enclosure url="https://example.org/a" length="100" sparkle:edSignature="a+/b"/>
           </item></channel></rss>)",
        version, more);
}

struct StandardUpdaterTest : testing::Test {
    StandardUpdaterTest() {
        bundle.info = infoOf("1");
        installer.update.info = infoOf("2");
        transfers.feed = feedOf("2");
    }

    static std::map<std::string, std::string> infoOf(const std::string& version) {
        return {{"CFBundleIdentifier", "app.blankwell.BlankwellPlus"},
                {"CFBundleVersion", version},
                {"SUFeedURL", std::string(" ") + feedUrl},
                {"SUPublicEDKey", "key"}};
    }

    StandardUpdater& make() {
        updater.reset(); // which gives up the user interface
        updater = std::make_unique<StandardUpdater>(StandardUpdater::Services{
            .bundle = bundle,
            .installation = installation,
            .systemVersion = "6.1",
            .defaults = defaults,
            .job = [this]() -> std::expected<UpdateJob*, UpdateFailure> {
                return jobFailure ? std::unexpected(*jobFailure)
                                  : std::expected<UpdateJob*, UpdateFailure>(&job);
            },
            .userInterface = user,
            .background = background,
            .mainQueue = queue,
            .timer = timer,
            .now = [this] { return now; },
            .relaunch = [this] { ++relaunches; },
            .log = log,
        });
        return *updater;
    }

    void work() {
        background.work();
        queue.run();
    }

    void answer(UpdateAnswer answer) const { user.listener.answered(answer); }

    /// An updater that has found the update.
    void find() {
        make().checkForUpdates();
        work();
    }

    template <typename State>
    const State& shown() {
        if (user.shown.empty() || !std::holds_alternative<State>(user.shown.back())) {
            throw std::runtime_error("another state is shown");
        }
        return std::get<State>(user.shown.back());
    }

    FakeBundle bundle;
    InstallationForm installation = InstallationForm::ownBundle;
    FakeUserDefaults defaults;
    FakeUpdateTransfers transfers;
    FakeUpdateInstaller installer;
    UpdateJob job{transfers, installer};
    std::optional<UpdateFailure> jobFailure;
    FakeUpdateUserInterface user;
    FakeBackgroundWork background;
    FakeMainQueue queue;
    FakeTimer timer;
    UpdateSchedule::Clock::time_point now{1'800'000'000s};
    int relaunches = 0;
    FakeLog log;
    std::unique_ptr<StandardUpdater> updater;
};

TEST_F(StandardUpdaterTest, NothingHappensUntilItIsAskedFor) {
    make();
    EXPECT_TRUE(updater->canCheckForUpdates());
    EXPECT_THAT(user.shown, IsEmpty());
    EXPECT_EQ(timer.untilNext(), std::nullopt);
    EXPECT_THAT(background.pending, IsEmpty());
}

TEST_F(StandardUpdaterTest, ACheckReadsTheFeedInTheBackgroundAndOffersTheUpdate) {
    make().checkForUpdates();
    EXPECT_FALSE(updater->canCheckForUpdates());
    EXPECT_NO_THROW(shown<CheckingForUpdate>());
    EXPECT_THAT(transfers.fetched, IsEmpty());
    work();
    EXPECT_THAT(transfers.fetched, ElementsAre(feedUrl));
    EXPECT_EQ(shown<UpdateFound>().item.version, "2");
    EXPECT_FALSE(shown<UpdateFound>().isCritical);
    EXPECT_THAT(transfers.downloaded, IsEmpty());
}

TEST_F(StandardUpdaterTest, TheStateIsToldAtOnceAndAtEachChange) {
    make();
    std::vector<bool> told;
    const auto subscription =
        updater->observeCanCheckForUpdates([&] { told.push_back(updater->canCheckForUpdates()); });
    updater->checkForUpdates();
    work();
    answer(UpdateAnswer::close);
    EXPECT_THAT(told, ElementsAre(true, false, true));
}

TEST_F(StandardUpdaterTest, AskingAgainBringsTheWindowToTheFront) {
    find();
    updater->checkForUpdates();
    EXPECT_EQ(user.raises, 1);
    EXPECT_THAT(transfers.fetched, SizeIs(1));
}

TEST_F(StandardUpdaterTest, AFeedWithNothingNewerIsSaidToBeSo) {
    for (const auto* version : {"1", "0.9"}) {
        transfers.feed = feedOf(version);
        find();
        EXPECT_NO_THROW(shown<NoUpdateFound>()) << version;
    }
}

TEST_F(StandardUpdaterTest, AFailedCheckIsShownAndCanBeTriedAgain) {
    transfers.failWith = {UpdateFailure::Reason::unreachable, "No server."};
    find();
    EXPECT_EQ(shown<UpdateFailed>().description, "No server.");
    transfers.failWith.reset();
    answer(UpdateAnswer::tryAgain);
    work();
    EXPECT_NO_THROW(shown<UpdateFound>());
}

TEST_F(StandardUpdaterTest, AFeedThatCannotBeReadIsAFailure) {
    transfers.feed = "<html/>";
    find();
    EXPECT_NO_THROW(shown<UpdateFailed>());
}

TEST_F(StandardUpdaterTest, WhatDoesTheWorkMayBeMissing) {
    jobFailure = {UpdateFailure::Reason::disk, "Damaged."};
    make().checkForUpdates();
    EXPECT_EQ(shown<UpdateFailed>().description, "Damaged.");
}

TEST_F(StandardUpdaterTest, ACancelledCheckReportsNothing) {
    make().checkForUpdates();
    answer(UpdateAnswer::close);
    work();
    EXPECT_THAT(user.shown, SizeIs(1));
    EXPECT_FALSE(user.isOpen);
    EXPECT_TRUE(updater->canCheckForUpdates());
}

TEST_F(StandardUpdaterTest, AReportThatComesAfterTheEndDoesNothing) {
    make().checkForUpdates();
    background.work();
    updater.reset();
    queue.run();
    EXPECT_THAT(user.shown, SizeIs(1));
    EXPECT_EQ(user.listener.answered, nullptr);
}

TEST_F(StandardUpdaterTest, AnUpdateIsDownloadedVerifiedAndInstalled) {
    transfers.steps = {40, 80};
    find();
    answer(UpdateAnswer::install);
    EXPECT_EQ(shown<DownloadingUpdate>().progress, (TransferProgress{0, 100, 0}));
    user.shown.clear();
    work();
    EXPECT_THAT(transfers.downloaded,
                ElementsAre(std::pair("https://example.org/a", "/staging/a_-b")));
    EXPECT_THAT(installer.done, ElementsAre("unpack /staging/a_-b a+/b key", "install"));
    ASSERT_THAT(user.shown, SizeIs(4));
    EXPECT_EQ(std::get<DownloadingUpdate>(user.shown[1]).progress.received, 80U);
    EXPECT_TRUE(std::holds_alternative<InstallingUpdate>(user.shown[2]));
    EXPECT_EQ(shown<UpdateReady>().item.version, "2");
    EXPECT_EQ(relaunches, 0);
    answer(UpdateAnswer::relaunch);
    EXPECT_EQ(relaunches, 1);
}

TEST_F(StandardUpdaterTest, AnInstalledUpdateIsNotOfferedAgain) {
    find();
    answer(UpdateAnswer::install);
    work();
    answer(UpdateAnswer::close);
    EXPECT_EQ(relaunches, 0);
    updater->checkForUpdates();
    work();
    EXPECT_NO_THROW(shown<NoUpdateFound>());
}

TEST_F(StandardUpdaterTest, AFailedInstallationIsShownAndGoesOnWhereItWas) {
    find();
    transfers.failWith = {UpdateFailure::Reason::truncated, "Broke off."};
    answer(UpdateAnswer::install);
    work();
    EXPECT_EQ(shown<UpdateFailed>().description, "Broke off.");
    EXPECT_THAT(installer.done, IsEmpty());
    transfers.failWith.reset();
    answer(UpdateAnswer::tryAgain);
    work();
    EXPECT_NO_THROW(shown<UpdateReady>());
    EXPECT_THAT(transfers.fetched, SizeIs(1));
}

TEST_F(StandardUpdaterTest, WhatIsNotSignedIsNotInstalled) {
    installer.failToUnpack = {UpdateFailure::Reason::wrongSignature, "Not signed."};
    find();
    answer(UpdateAnswer::install);
    work();
    EXPECT_EQ(shown<UpdateFailed>().description, "Not signed.");
    EXPECT_THAT(installer.done, SizeIs(1));
}

TEST_F(StandardUpdaterTest, TheArchiveMustHoldWhatWasAnnounced) {
    const auto isInstalled = [this](const char* key, const char* value) {
        installer.update.info = infoOf("2");
        installer.update.info[key] = value;
        installer.done.clear();
        find();
        answer(UpdateAnswer::install);
        work();
        return testing::Value(installer.done, testing::Contains("install"));
    };
    EXPECT_TRUE(isInstalled("CFBundleVersion", "2.0"));
    EXPECT_FALSE(isInstalled("CFBundleVersion", "1"));
    EXPECT_FALSE(isInstalled("CFBundleVersion", "0.9"));
    EXPECT_FALSE(isInstalled("CFBundleVersion", "1.5"));
    EXPECT_FALSE(isInstalled("CFBundleVersion", "3"));
    EXPECT_FALSE(isInstalled("CFBundleIdentifier", "org.example.Other"));
    EXPECT_FALSE(isInstalled("SUPublicEDKey", "other"));
    EXPECT_FALSE(isInstalled("SUPublicEDKey", ""));
}

TEST_F(StandardUpdaterTest, ACancelDuringTheUnpackingInstallsNothing) {
    find();
    answer(UpdateAnswer::install);
    installer.whileUnpacking = [this] { answer(UpdateAnswer::close); };
    work();
    EXPECT_THAT(installer.done, SizeIs(1));
    EXPECT_FALSE(user.isOpen);
    EXPECT_TRUE(updater->canCheckForUpdates());
}

TEST_F(StandardUpdaterTest, AnArchiveThatIsTooLargeIsNotFetched) {
    transfers.feed.replace(transfers.feed.find("\"100\""), 5, "\"999999999999\"");
    find();
    answer(UpdateAnswer::install);
    work();
    EXPECT_NO_THROW(shown<UpdateFailed>());
    EXPECT_THAT(transfers.downloaded, IsEmpty());
}

TEST_F(StandardUpdaterTest, AnInstallationThatIsUpdatedElsewhereSaysSoAndAsksNobody) {
    defaults.values["SUEnableAutomaticChecks"] = true;
    for (const auto kind : {InstallationForm::foreignBundle, InstallationForm::package,
                            InstallationForm::sandbox, InstallationForm::looseProgram}) {
        installation = kind;
        find();
        EXPECT_NE(shown<UpdatedElsewhere>().description, "");
    }
    EXPECT_THAT(transfers.fetched, IsEmpty());
    EXPECT_EQ(timer.untilNext(), std::nullopt);
}

TEST_F(StandardUpdaterTest, AfterTheUsersConsentChecksAreADayApart) {
    find();
    user.listener.setChecksAutomatically(true);
    answer(UpdateAnswer::close);
    EXPECT_EQ(timer.untilNext(), 24h);
    now += 24h;
    EXPECT_TRUE(timer.ring());
    work();
    EXPECT_THAT(transfers.fetched, SizeIs(2));
    EXPECT_NO_THROW(shown<UpdateFound>());
    EXPECT_TRUE(user.checksAutomatically);
    answer(UpdateAnswer::close);
    EXPECT_EQ(timer.untilNext(), 24h);
    user.listener.setChecksAutomatically(false);
    EXPECT_EQ(timer.untilNext(), std::nullopt);
}

TEST_F(StandardUpdaterTest, ACheckThatIsDueWaitsUntilTheStartIsOver) {
    defaults.values["SUEnableAutomaticChecks"] = true;
    make();
    EXPECT_EQ(timer.untilNext(), 10s);
}

TEST_F(StandardUpdaterTest, WhatNobodyAskedForFailsAndFindsNothingSilently) {
    defaults.values["SUEnableAutomaticChecks"] = true;
    make();
    transfers.failWith = {UpdateFailure::Reason::unreachable, "No server."};
    EXPECT_TRUE(timer.ring());
    work();
    EXPECT_THAT(log.lines, ElementsAre(FakeLog::Line{LogLevel::error, "SelfUpdate",
                                                     "Update failed: No server."}));
    EXPECT_TRUE(updater->canCheckForUpdates());
    EXPECT_EQ(timer.untilNext(), 24h);
    transfers.failWith.reset();
    transfers.feed = feedOf("1");
    EXPECT_TRUE(timer.ring());
    work();
    EXPECT_THAT(transfers.fetched, SizeIs(2));
    EXPECT_THAT(user.shown, IsEmpty());
}

TEST_F(StandardUpdaterTest, ASkippedVersionIsNotOfferedAgainUnlessAskedForOrCritical) {
    defaults.values["SUEnableAutomaticChecks"] = true;
    find();
    answer(UpdateAnswer::skipVersion);
    user.shown.clear();
    EXPECT_TRUE(timer.ring());
    work();
    EXPECT_THAT(user.shown, IsEmpty());
    transfers.feed = feedOf("2", "<sparkle:criticalUpdate/>");
    EXPECT_TRUE(timer.ring());
    work();
    EXPECT_TRUE(shown<UpdateFound>().isCritical);
    answer(UpdateAnswer::close);
    transfers.feed = feedOf("2");
    updater->checkForUpdates();
    work();
    EXPECT_NO_THROW(shown<UpdateFound>());
}

TEST_F(StandardUpdaterTest, AnAnswerThatDoesNotFitInstallsNothing) {
    make().checkForUpdates();
    answer(UpdateAnswer::install);
    work();
    EXPECT_THAT(transfers.downloaded, IsEmpty());
}

} // namespace
} // namespace blankwell
