#include "platform/linux/FolderCandidates.h"

#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace blankwell {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

struct FolderCandidatesTest : testing::Test {
    FileUrl at(std::string_view name) const { return disk.url().appending(name); }

    std::vector<FileUrl> called(std::string_view name) const {
        return folderCandidates(name, {.home = at("home"),
                                       .favourites = {at("work")},
                                       .volumes = {at("media"), at("missing")}});
    }

    TemporaryFolder disk;
};

TEST_F(FolderCandidatesTest, WhatIsKnownIsLikelyWhateverTheCaption) {
    disk.addFolder("media/stick");
    EXPECT_THAT(called("Persönlicher Ordner"),
                ElementsAre(at("home"), at("work"), FileUrl("/"), at("media/stick")));
    EXPECT_EQ(called("").size(), 4U);
    EXPECT_EQ(called("/").size(), 4U);
}

TEST_F(FolderCandidatesTest, FoldersOfThatNameComeFirst) {
    for (const auto* name : {"home/x", "home/sub/x", "work/x", "work/sub/x", "media/stick/x"}) {
        disk.addFolder(name);
    }
    const auto folders = called("x");
    EXPECT_THAT(folders, AllOf(Contains(at("home/sub/x")), Contains(at("work/x")),
                               Contains(at("work/sub/x")), Contains(at("media/stick/x"))));
    EXPECT_EQ(folders.front(), at("home/x"));
    EXPECT_EQ(folders.size(), 9U);
}

TEST_F(FolderCandidatesTest, AFileOfThatNameIsNone) {
    disk.addFolder("home");
    disk.addFile("home/x");
    EXPECT_THAT(called("x"), Not(Contains(at("home/x"))));
}

TEST_F(FolderCandidatesTest, HiddenFoldersAreNotLookedInto) {
    disk.addFolder("home/.cache/x");
    EXPECT_THAT(called("x"), Not(Contains(at("home/.cache/x"))));
}

TEST_F(FolderCandidatesTest, EachFolderComesOnce) {
    disk.addFolder("home/x");
    const auto folders =
        folderCandidates("x", {.home = at("home"), .favourites = {at("home"), at("home/x")}});
    EXPECT_THAT(folders, ElementsAre(at("home/x"), at("home"), FileUrl("/")));
}

} // namespace
} // namespace blankwell
