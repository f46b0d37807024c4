#include "base/FileUrl.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

TEST(FileUrlTest, CarriesNoTrailingSlashExceptTheRoot) {
    EXPECT_EQ(FileUrl("/a/b//").path(), "/a/b");
    EXPECT_EQ(FileUrl("/").path(), "/");
    EXPECT_EQ(FileUrl("//").path(), "/");
}

TEST(FileUrlTest, StandardizingTakesOutDotsAndDoubleSlashesByText) {
    EXPECT_EQ(FileUrl("/a//b/./c/../d/").standardized().path(), "/a/b/d");
    EXPECT_EQ(FileUrl("/../a").standardized().path(), "/a");
    EXPECT_EQ(FileUrl("/..").standardized().path(), "/");
    EXPECT_EQ(FileUrl("//a").standardized().path(), "/a");
    EXPECT_EQ(FileUrl("a/../../b").standardized().path(), "../b");
    EXPECT_EQ(FileUrl("../../b").standardized().path(), "../../b");
    EXPECT_EQ(FileUrl(".").standardized().path(), "");
    EXPECT_EQ(FileUrl("/a/...").standardized().path(), "/a/...");
}

TEST(FileUrlTest, StandardizingKeepsCaseAndBytes) {
    EXPECT_EQ(FileUrl("/Ab/\xFF\n").standardized().path(), "/Ab/\xFF\n");
}

TEST(FileUrlTest, TheLastComponentOfTheRootIsTheSlash) {
    EXPECT_EQ(FileUrl("/").lastPathComponent(), "/");
    EXPECT_EQ(FileUrl("/a/b").lastPathComponent(), "b");
    EXPECT_EQ(FileUrl("/a").lastPathComponent(), "a");
    EXPECT_EQ(FileUrl("a").lastPathComponent(), "a");
    EXPECT_EQ(FileUrl("").lastPathComponent(), "");
}

TEST(FileUrlTest, AppendingToTheRootDoublesNoSlash) {
    EXPECT_EQ(FileUrl("/").appending("a").path(), "/a");
    EXPECT_EQ(FileUrl("/a").appending("b c").path(), "/a/b c");
}

TEST(FileUrlTest, WhatIsAppendedToAStandardizedUrlIsStandardizedAnew) {
    const auto folder = FileUrl("/a/b").standardized();
    EXPECT_EQ(folder.appending("..").standardized().path(), "/a");
    EXPECT_EQ(folder.appending("c/../d").standardized().path(), "/a/b/d");
    EXPECT_EQ(folder.appending("..").appending("c").standardized().path(), "/a/c");
}

TEST(FileUrlTest, AParentIsNoMoreStandardizedThanItsChild) {
    EXPECT_EQ(FileUrl("/a/../b/c").deletingLastPathComponent().standardized().path(), "/b");
}

TEST(FileUrlTest, ARelativeNameIsHeldByNothing) {
    EXPECT_EQ(FileUrl("a").deletingLastPathComponent().path(), "");
}

TEST(FileUrlTest, TheFolderThatHoldsTheRootIsTheRoot) {
    EXPECT_EQ(FileUrl("/a/b").deletingLastPathComponent().path(), "/a");
    EXPECT_EQ(FileUrl("/a").deletingLastPathComponent().path(), "/");
    EXPECT_EQ(FileUrl("/").deletingLastPathComponent().path(), "/");
}

TEST(CoversTest, ARootCoversItselfAndWhatIsBelowIt) {
    EXPECT_TRUE(covers(FileUrl("/Users/a/Documents"), FileUrl("/Users/a/Documents")));
    EXPECT_TRUE(covers(FileUrl("/Users/a"), FileUrl("/Users/a/b/c")));
    EXPECT_TRUE(covers(FileUrl("/Users/x/../a"), FileUrl("/Users/a/b")));
}

TEST(CoversTest, ANameThatOnlyBeginsLikeTheRootIsNotCovered) {
    EXPECT_FALSE(covers(FileUrl("/Users/a/Doc"), FileUrl("/Users/a/Documents")));
    EXPECT_FALSE(covers(FileUrl("/Users/a/b"), FileUrl("/Users/a")));
}

TEST(CoversTest, CaseCounts) {
    EXPECT_FALSE(covers(FileUrl("/Users/a"), FileUrl("/users/a/b")));
}

TEST(CoversTest, TheFileSystemRootCoversOnlyItself) {
    EXPECT_TRUE(covers(FileUrl("/"), FileUrl("/")));
    EXPECT_FALSE(covers(FileUrl("/"), FileUrl("/Users")));
}

TEST(CoversTest, ATargetThatClimbsOutIsNotCovered) {
    EXPECT_FALSE(covers(FileUrl("/Users/a"), FileUrl("/Users/a/../b")));
}

} // namespace
} // namespace blankwell
