#include "platform/linux/PreferenceDomainWatch.h"

#include "platform/linux/PlistDomain.h"

#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

#include <fmt/core.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <poll.h>
#include <sys/stat.h>

namespace blankwell {
namespace {

struct PreferenceDomainWatchTest : testing::Test {
    /// Whether the event loop would call the watch now.
    bool isReadable() {
        pollfd poll{.fd = watch->descriptor(), .events = POLLIN, .revents = 0};
        return ::poll(&poll, 1, 0) == 1;
    }

    TemporaryFolder folder;
    std::string directory = folder.url().path();
    PlistDomain domain{directory, "d"};
    std::expected<PreferenceDomainWatch, SystemError> watch =
        PreferenceDomainWatch::begin(directory, "d");
};

TEST_F(PreferenceDomainWatchTest, NothingHasChangedAtFirst) {
    ASSERT_TRUE(watch);
    EXPECT_FALSE(isReadable());
    EXPECT_FALSE(watch->drain());
}

TEST_F(PreferenceDomainWatchTest, AnotherProcesssWriteIsSeenOnce) {
    inChildProcess([this] { ASSERT_TRUE(domain.set("k", true)); });
    EXPECT_TRUE(isReadable());
    EXPECT_TRUE(watch->drain());
    EXPECT_FALSE(isReadable());
    EXPECT_FALSE(watch->drain());
}

TEST_F(PreferenceDomainWatchTest, ItOutlivesManyReplacements) {
    for (int round = 0; round < 100; ++round) {
        ASSERT_TRUE(domain.set("k", fmt::format("{}", round)));
        EXPECT_TRUE(watch->drain()) << round;
    }
}

TEST_F(PreferenceDomainWatchTest, AWriteInPlaceAndARemovalAreSeen) {
    std::ofstream(directory + "/d.plist") << "<plist/>";
    EXPECT_TRUE(watch->drain());
    std::filesystem::remove(directory + "/d.plist");
    EXPECT_TRUE(watch->drain());
}

TEST_F(PreferenceDomainWatchTest, OtherFilesAreNotSeen) {
    PlistDomain other(directory, "other");
    ASSERT_TRUE(other.set("k", true));
    for (const auto* name : {"d.plist.lock", "d.plist.tmp", "d.plist.damaged-1", "d", "dd.plist"}) {
        std::ofstream(directory + "/" + name) << "a";
        std::filesystem::remove(directory + "/" + name);
    }
    EXPECT_TRUE(isReadable());
    EXPECT_FALSE(watch->drain());
    EXPECT_FALSE(isReadable());
}

TEST_F(PreferenceDomainWatchTest, MoreEventsThanTheQueueHoldsCountAsAChange) {
    std::ifstream limit("/proc/sys/fs/inotify/max_queued_events");
    int most = 0;
    ASSERT_TRUE(limit >> most);
    for (int round = 0; round <= most / 2; ++round) {
        // Two different events each, so that the kernel cannot merge them.
        std::filesystem::create_symlink("a", directory + "/other");
        std::filesystem::remove(directory + "/other");
    }
    EXPECT_TRUE(watch->drain());
}

TEST_F(PreferenceDomainWatchTest, ARemovedFolderIsAChange) {
    std::filesystem::remove_all(directory);
    EXPECT_TRUE(watch->drain());
}

TEST_F(PreferenceDomainWatchTest, TheFileThatALinkPointsToIsWatched) {
    folder.addFolder("dotfiles");
    PlistDomain linked(directory, "linked");
    std::filesystem::create_symlink(folder.addFile("dotfiles/mine").path(),
                                    directory + "/linked.plist");
    auto linkedWatch = PreferenceDomainWatch::begin(directory, "linked");
    ASSERT_TRUE(linkedWatch);
    ASSERT_TRUE(linked.set("k", true));
    EXPECT_TRUE(linkedWatch->drain());
    std::ofstream(directory + "/mine") << "of the same name elsewhere";
    EXPECT_FALSE(linkedWatch->drain());
}

TEST_F(PreferenceDomainWatchTest, AMissingFolderIsMadePrivate) {
    auto early = PreferenceDomainWatch::begin(directory + "/not/yet", "d");
    ASSERT_TRUE(early);
    struct stat status{};
    ASSERT_EQ(::stat((directory + "/not/yet").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
    ASSERT_TRUE(PlistDomain(directory + "/not/yet", "d").set("k", true));
    EXPECT_TRUE(early->drain());
}

TEST_F(PreferenceDomainWatchTest, AFolderThatCannotBeMadeIsAnError) {
    const auto file = folder.addFile("file");
    const auto failed = PreferenceDomainWatch::begin(file.path(), "d");
    ASSERT_FALSE(failed);
    EXPECT_EQ(
        failed.error().description,
        fmt::format("Could not watch the settings in {}/d.plist: Not a directory.", file.path()));
}

} // namespace
} // namespace blankwell
