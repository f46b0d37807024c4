#include "platform/linux/FolderSearch.h"

#include "platform/linux/ScratchFolder.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

struct FolderSearchTest : testing::Test {
    FolderIdentity identity(std::string_view relative) {
        return identifyFolder(scratch.at(relative)).value();
    }

    ScratchFolder scratch{ScratchFolder::inMemory};
};

TEST_F(FolderSearchTest, FindsBelowTheStart) {
    scratch.makeFolder("a/b/c/wanted");
    const auto wanted = identity("a/b/c/wanted");
    EXPECT_EQ(FolderSearch(wanted, {}).around(scratch.path()), scratch.at("a/b/c/wanted"));
}

TEST_F(FolderSearchTest, FindsAboveAndBesideTheStart) {
    scratch.makeFolder("a/b/c/start");
    scratch.makeFolder("a/x/wanted");
    const auto wanted = identity("a/x/wanted");
    EXPECT_EQ(FolderSearch(wanted, {}).around(scratch.at("a/b/c/start")), scratch.at("a/x/wanted"));
}

TEST_F(FolderSearchTest, LooksNearbyFirst) {
    scratch.makeFolder("a/start");
    scratch.makeFolder("a/wanted");
    for (int i = 0; i < 300; ++i) {
        scratch.makeFolder("far/" + std::to_string(i));
    }
    const auto wanted = identity("a/wanted");
    EXPECT_EQ(FolderSearch(wanted, {.entries = 50}).around(scratch.at("a/start")),
              scratch.at("a/wanted"));
}

TEST_F(FolderSearchTest, EndsAtTheLimitOfEntries) {
    for (int i = 0; i < 300; ++i) {
        scratch.makeFolder("many/" + std::to_string(i));
    }
    scratch.makeFolder("many/7/below/wanted");
    const auto wanted = identity("many/7/below/wanted");
    EXPECT_EQ(FolderSearch(wanted, {.entries = 200}).around(scratch.at("many")), std::nullopt);
    EXPECT_EQ(FolderSearch(wanted, {.entries = 20'000}).around(scratch.at("many")),
              scratch.at("many/7/below/wanted"));
}

TEST_F(FolderSearchTest, TheLimitOfEntriesHoldsWithinOneFolder) {
    int found = 0;
    for (int i = 0; i < 100; ++i) {
        scratch.makeFolder("many/" + std::to_string(i));
    }
    for (int i = 0; i < 100; ++i) {
        const auto wanted = identity("many/" + std::to_string(i));
        found += FolderSearch(wanted, {.entries = 20}).around(scratch.at("many")) ? 1 : 0;
    }
    EXPECT_GT(found, 0);
    EXPECT_LE(found, 20);
}

TEST_F(FolderSearchTest, EndsAtTheLimitOfTime) {
    scratch.makeFolder("wanted");
    const auto wanted = identity("wanted");
    EXPECT_EQ(FolderSearch(wanted, {.time = std::chrono::milliseconds(0)}).around(scratch.path()),
              std::nullopt);
}

TEST_F(FolderSearchTest, DoesNotFollowLinks) {
    scratch.makeFolder("start");
    const ScratchFolder elsewhere(ScratchFolder::inMemory);
    elsewhere.makeFolder("wanted");
    scratch.link("start/link", elsewhere.path());
    scratch.link("start/self", scratch.at("start"));
    const auto wanted = identifyFolder(elsewhere.at("wanted")).value();
    const auto found = FolderSearch(wanted, {}).around(scratch.at("start"));
    EXPECT_EQ(found, elsewhere.at("wanted"));
}

TEST_F(FolderSearchTest, AMissingStartFindsNothing) {
    scratch.makeFolder("wanted");
    const auto wanted = identity("wanted");
    EXPECT_EQ(FolderSearch(wanted, {}).around(scratch.at("none")), std::nullopt);
}

} // namespace
} // namespace blankwell
