#include "updates/UpdateJob.h"

#include "support/FakeUpdates.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Reason = UpdateFailure::Reason;

struct UpdateJobTest : testing::Test {
    UpdateJobTest() {
        running.info = {{"CFBundleIdentifier", "app.blankwell.BlankwellPlus"},
                        {"CFBundleVersion", "1"},
                        {"SUPublicEDKey", "key"}};
        installer.update.info = running.info;
        installer.update.info["CFBundleVersion"] = "2";
    }

    std::expected<void, UpdateFailure> install(std::optional<std::uint64_t> length) {
        return job.install(
            {.version = "2", .url = "https://example.org/a", .length = length, .signature = "sig"},
            running, {.downloaded = [](const auto&) {}, .willUnpack = [] {}}, stop.get_token());
    }

    FakeBundle running;
    FakeUpdateTransfers transfers;
    FakeUpdateInstaller installer;
    UpdateJob job{transfers, installer};
    std::stop_source stop;
};

TEST_F(UpdateJobTest, AnArchiveMayBeAsLargeAsAllowedAndNoLarger) {
    constexpr std::uint64_t megabyte = 1024 * 1024;
    EXPECT_EQ(UpdateJob::largestArchive, 256 * megabyte);
    EXPECT_EQ(install(UpdateJob::largestArchive + 1).error().reason, Reason::tooLarge);
    EXPECT_THAT(transfers.downloaded, IsEmpty());
    EXPECT_TRUE(install(UpdateJob::largestArchive));
    EXPECT_THAT(transfers.downloaded, SizeIs(1));
    EXPECT_THAT(installer.done, ElementsAre("unpack /staging/sig sig key", "install"));
}

TEST_F(UpdateJobTest, WhereNothingCanBePreparedNothingIsFetched) {
    installer.failToBegin = {Reason::disk, "No space."};
    EXPECT_EQ(install(100).error().description, "No space.");
    EXPECT_THAT(transfers.downloaded, IsEmpty());
}

TEST_F(UpdateJobTest, AStopThatComesWhileItUnpacksInstallsNothing) {
    installer.whileUnpacking = [this] { stop.request_stop(); };
    EXPECT_EQ(install(100).error().reason, Reason::cancelled);
    EXPECT_THAT(installer.done, SizeIs(1));
}

TEST_F(UpdateJobTest, WhatIsRefusedIsNotInstalled) {
    installer.update.info["SUPublicEDKey"] = "other";
    EXPECT_EQ(install(100).error().reason, Reason::wrongBundle);
    EXPECT_THAT(installer.done, SizeIs(1));
}

} // namespace
} // namespace blankwell
