#include "platform/linux/LinuxBookmarks.h"

#include "platform/linux/BookmarkOutcome.h"
#include "platform/linux/LinuxAccessScopes.h"
#include "platform/linux/ScratchFolder.h"
#include "support/ChildProcess.h"

#include <fmt/core.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>

namespace blankwell {
namespace {

using testing::HasSubstr;
using testing::ValuesIn;

/// Bookmarks in a folder of a disk and of a tmpfs.
struct LinuxBookmarksTest : testing::TestWithParam<std::string_view> {
    Bytes bookmarkOf(const std::string& folder) {
        const auto bookmark = bookmarks.create(FileUrl(folder));
        EXPECT_TRUE(bookmark) << bookmark.error().description;
        return bookmark.value_or(Bytes());
    }

    std::string resolve(const Bytes& bookmark) { return outcome(bookmarks.resolve(bookmark)); }

    /// Resolves as a user whom only the rights that folders give to all let in.
    void expectUnprivileged(const Bytes& bookmark, const std::string& expected) {
        withoutPrivilege([&] { EXPECT_EQ(resolve(bookmark), expected); });
    }

    ScratchFolder scratch{GetParam()};
    LinuxAccessScopes scopes;
    LinuxBookmarks bookmarks{scopes};
};

INSTANTIATE_TEST_SUITE_P(, LinuxBookmarksTest,
                         testing::Values(ScratchFolder::onDisk, ScratchFolder::inMemory),
                         [](const auto& each) {
                             return each.param == ScratchFolder::onDisk ? "onDisk" : "inMemory";
                         });

TEST_P(LinuxBookmarksTest, AnUnchangedFolderIsWhereTheBookmarkSays) {
    const auto folder = scratch.makeFolder("a/Projects");
    EXPECT_EQ(resolve(bookmarkOf(folder)), folder);
}

TEST_P(LinuxBookmarksTest, WhatHappensInsideAFolderDoesNotChangeIt) {
    const auto folder = scratch.makeFolder("Projects");
    const auto bookmark = bookmarkOf(folder);
    scratch.makeFolder("Projects/new");
    scratch.makeFile("Projects/file");
    EXPECT_EQ(resolve(bookmark), folder);
}

TEST_P(LinuxBookmarksTest, AnotherSpellingOfThePathIsStoredStandardized) {
    const auto folder = scratch.makeFolder("Projects");
    EXPECT_EQ(resolve(bookmarkOf(scratch.at("./x/..//Projects/"))), folder);
}

TEST_P(LinuxBookmarksTest, ARenamedFolderIsStaleAtItsNewName) {
    scratch.makeFolder("Projects");
    const auto bookmark = bookmarkOf(scratch.at("Projects"));
    scratch.rename("Projects", "Work");
    EXPECT_EQ(resolve(bookmark), stale(scratch.at("Work")));
}

TEST_P(LinuxBookmarksTest, AMovedFolderIsStaleAtItsNewPlace) {
    const auto bookmark = bookmarkOf(scratch.makeFolder("a/b/Projects"));
    scratch.makeFolder("x/y/z");
    scratch.rename("a/b/Projects", "x/y/z/Work");
    EXPECT_EQ(resolve(bookmark), stale(scratch.at("x/y/z/Work")));
}

TEST_P(LinuxBookmarksTest, AFolderWhoseParentWasRenamedIsFound) {
    const auto bookmark = bookmarkOf(scratch.makeFolder("a/b/Projects"));
    scratch.rename("a/b", "a/c");
    EXPECT_EQ(resolve(bookmark), stale(scratch.at("a/c/Projects")));
}

TEST_P(LinuxBookmarksTest, AFolderWhoseGrandparentMovedIsFound) {
    const auto bookmark = bookmarkOf(scratch.makeFolder("a/b/Projects"));
    scratch.makeFolder("x/y");
    scratch.rename("a", "x/y/a");
    EXPECT_EQ(resolve(bookmark), stale(scratch.at("x/y/a/b/Projects")));
}

TEST_P(LinuxBookmarksTest, AFolderRenamedInAMovedParentIsFound) {
    const auto bookmark = bookmarkOf(scratch.makeFolder("a/b/Projects"));
    scratch.makeFolder("x");
    scratch.rename("a/b", "x/c");
    scratch.rename("x/c/Projects", "x/c/Work");
    EXPECT_EQ(resolve(bookmark), stale(scratch.at("x/c/Work")));
}

TEST_P(LinuxBookmarksTest, AStaleBookmarkMadeAnewIsNotStale) {
    const auto bookmark = bookmarkOf(scratch.makeFolder("Projects"));
    scratch.rename("Projects", "Work");
    const auto moved = bookmarks.resolve(bookmark);
    ASSERT_TRUE(moved);
    EXPECT_EQ(resolve(bookmarkOf(moved->url.path())), scratch.at("Work"));
}

TEST_P(LinuxBookmarksTest, ADeletedFolderIsGone) {
    const auto bookmark = bookmarkOf(scratch.makeFolder("Projects"));
    scratch.remove("Projects");
    const auto resolved = bookmarks.resolve(bookmark);
    EXPECT_EQ(outcome(resolved), "error 4");
    EXPECT_EQ(resolved.error().description, "The folder \"Projects\" is not there any more.");
}

TEST_P(LinuxBookmarksTest, ADeletedFolderThatIsStillOpenIsGone) {
    const auto bookmark = bookmarkOf(scratch.makeFolder("Projects"));
    const std::filesystem::directory_iterator open(scratch.at("Projects"));
    scratch.remove("Projects");
    EXPECT_EQ(bookmarks.resolve(bookmark).error().description,
              "The folder \"Projects\" is not there any more.");
    // As the kernel calls a folder that is open but deleted.
    scratch.makeFolder("Projects (deleted)");
    EXPECT_EQ(resolve(bookmark), "error 4");
}

TEST_P(LinuxBookmarksTest, AFolderMadeAnewUnderTheNameIsNotResolved) {
    // Some of these get the inode number of the deleted folder.
    for (int i = 0; i < 20; ++i) {
        const auto bookmark = bookmarkOf(scratch.makeFolder("Projects"));
        scratch.remove("Projects");
        scratch.makeFolder("Projects");
        EXPECT_EQ(resolve(bookmark), "error 4");
    }
}

TEST_P(LinuxBookmarksTest, AnImpostorIsPassedOverForTheRenamedFolder) {
    const auto bookmark = bookmarkOf(scratch.makeFolder("Projects"));
    scratch.rename("Projects", "Work");
    scratch.makeFolder("Projects");
    EXPECT_EQ(resolve(bookmark), stale(scratch.at("Work")));
    EXPECT_FALSE(scopes.start(FileUrl(scratch.at("Work/x"))));
    EXPECT_TRUE(scopes.start(FileUrl(scratch.at("Work"))));
}

TEST_P(LinuxBookmarksTest, ExchangedFoldersAreToldApart) {
    const auto toOne = bookmarkOf(scratch.makeFolder("One"));
    const auto toTwo = bookmarkOf(scratch.makeFolder("Two"));
    scratch.rename("One", "x");
    scratch.rename("Two", "One");
    scratch.rename("x", "Two");
    EXPECT_EQ(resolve(toOne), stale(scratch.at("Two")));
    EXPECT_EQ(resolve(toTwo), stale(scratch.at("One")));
}

TEST_P(LinuxBookmarksTest, AFileInTheFoldersPlaceIsNotResolved) {
    const auto bookmark = bookmarkOf(scratch.makeFolder("Projects"));
    scratch.remove("Projects");
    scratch.makeFile("Projects");
    const auto resolved = bookmarks.resolve(bookmark);
    EXPECT_EQ(outcome(resolved), "error 4");
    EXPECT_EQ(resolved.error().description,
              "The folder \"Projects\" is not there any more; something else has taken its place.");
}

TEST_P(LinuxBookmarksTest, AFileInTheParentsPlaceDoesNotHideTheMovedFolder) {
    const auto bookmark = bookmarkOf(scratch.makeFolder("a/Projects"));
    scratch.rename("a", "b");
    scratch.makeFile("a");
    EXPECT_EQ(resolve(bookmark), stale(scratch.at("b/Projects")));
}

TEST_P(LinuxBookmarksTest, AFolderReachedThroughALinkKeepsThePathAsWritten) {
    scratch.link("link", scratch.makeFolder("real"));
    EXPECT_EQ(resolve(bookmarkOf(scratch.at("link"))), scratch.at("link"));
}

TEST_P(LinuxBookmarksTest, ALinkedFolderIsRefusedOnceTheLinkLeadsElsewhere) {
    scratch.link("link", scratch.makeFolder("real"));
    const auto bookmark = bookmarkOf(scratch.at("link"));
    scratch.link("link", scratch.makeFolder("other"));
    EXPECT_EQ(resolve(bookmark), "error 4");
    EXPECT_FALSE(scopes.start(FileUrl(scratch.at("other"))));
}

TEST_P(LinuxBookmarksTest, AFolderWhoseLinkWasDeletedIsStaleWhereItReallyIs) {
    scratch.link("link", scratch.makeFolder("a/real"));
    const auto bookmark = bookmarkOf(scratch.at("link"));
    scratch.remove("link");
    EXPECT_EQ(resolve(bookmark), stale(scratch.at("a/real")));
}

TEST_P(LinuxBookmarksTest, ALinkedFolderThatWasRenamedIsFoundBehindTheDanglingLink) {
    scratch.link("link", scratch.makeFolder("a/real"));
    const auto bookmark = bookmarkOf(scratch.at("link"));
    scratch.rename("a/real", "a/moved");
    EXPECT_EQ(resolve(bookmark), stale(scratch.at("a/moved")));
}

TEST_P(LinuxBookmarksTest, AnImpostorBehindALinkedParentIsPassedOver) {
    scratch.makeFolder("real/Projects");
    scratch.link("link", scratch.at("real"));
    const auto bookmark = bookmarkOf(scratch.at("link/Projects"));
    scratch.rename("real/Projects", "real/Work");
    scratch.makeFolder("real/Projects");
    EXPECT_EQ(resolve(bookmark), stale(scratch.at("real/Work")));
}

TEST_P(LinuxBookmarksTest, AFolderThatLeftALinkBehindIsWhereTheBookmarkSays) {
    const auto bookmark = bookmarkOf(scratch.makeFolder("Projects"));
    scratch.rename("Projects", "Work");
    scratch.link("Projects", scratch.at("Work"));
    EXPECT_EQ(resolve(bookmark), scratch.at("Projects"));
}

TEST_P(LinuxBookmarksTest, ALoopOfLinksAtTheOldPathDoesNotHideTheMovedFolder) {
    const auto bookmark = bookmarkOf(scratch.makeFolder("Projects"));
    scratch.rename("Projects", "Work");
    scratch.link("Projects", scratch.at("Projects"));
    EXPECT_EQ(resolve(bookmark), stale(scratch.at("Work")));
}

TEST_P(LinuxBookmarksTest, NamesOfAnyBytesAreKept) {
    for (const std::string& name :
         {std::string("two\nlines"), std::string(" spaces at both ends "), std::string("\"'`$\\"),
          std::string("100%41%"), std::string("\xFF\xC0\x80"), std::string(255, 'n'),
          std::string("was (deleted)"), std::string("gone (deleted)")}) {
        const auto folder = scratch.makeFolder(name);
        const auto bookmark = bookmarkOf(folder);
        EXPECT_EQ(resolve(bookmark), folder);
        scratch.rename(name, "moved " + name.substr(0, 200));
        EXPECT_EQ(resolve(bookmark), stale(scratch.at("moved " + name.substr(0, 200))));
    }
}

TEST_P(LinuxBookmarksTest, APathAsLongAsTheSystemTakesIsResolved) {
    std::string relative(200, 'a');
    while (scratch.at(relative).size() + 201 < PATH_MAX - 1) {
        relative.append(1, '/').append(200, 'a');
    }
    relative += '/';
    relative.append(PATH_MAX - 1 - scratch.at(relative).size(), 'z');
    const auto folder = scratch.makeFolder(relative);
    ASSERT_EQ(folder.size(), PATH_MAX - 1);
    const auto bookmark = bookmarkOf(folder);
    EXPECT_EQ(resolve(bookmark), folder);
    scratch.rename(std::string(200, 'a'), "b");
    EXPECT_EQ(resolve(bookmark), stale(scratch.at(fmt::format("b{}", relative.substr(200)))));
}

TEST_P(LinuxBookmarksTest, APathThatGrewLongerThanTheSystemTakesIsNotResolved) {
    std::string relative(200, 'a');
    while (scratch.at(relative).size() + 201 < PATH_MAX - 1) {
        relative.append(1, '/').append(200, 'a');
    }
    const auto bookmark = bookmarkOf(scratch.makeFolder(relative));
    scratch.rename(std::string(200, 'a'), std::string(255, 'b'));
    scratch.rename(std::string(255, 'b') + "/" + std::string(200, 'a'),
                   std::string(255, 'b') + "/" + std::string(255, 'b'));
    EXPECT_EQ(resolve(bookmark), "error 4");
}

TEST_P(LinuxBookmarksTest, WhatCannotBeBookmarkedIsSaidInWords) {
    const auto refused = [&](const std::string& path) {
        const auto bookmark = bookmarks.create(FileUrl(path));
        return bookmark ? "made"
                        : fmt::format("{} {}", bookmark.error().code, bookmark.error().description);
    };
    EXPECT_EQ(refused(scratch.at("none")), "4 The folder \"none\" does not exist.");
    EXPECT_EQ(refused(scratch.makeFile("file")), "256 \"file\" is not a folder.");
    EXPECT_EQ(refused(scratch.at("file/x")), "256 \"x\" is not a folder.");
    EXPECT_THAT(refused("relative"), HasSubstr("256 The folder \"relative\" cannot be opened"));
    EXPECT_THAT(refused(scratch.path() + std::string("\0/x", 3)), HasSubstr("cannot be opened"));
    EXPECT_FALSE(scopes.start(FileUrl(scratch.at("none"))));
}

TEST_P(LinuxBookmarksTest, TheRootFolderCanBeBookmarked) {
    EXPECT_EQ(resolve(bookmarkOf("/")), "/");
}

TEST_P(LinuxBookmarksTest, OnlyWhatWasBookmarkedOrResolvedCanBeStarted) {
    const auto folder = scratch.makeFolder("Projects");
    EXPECT_FALSE(scopes.start(FileUrl(folder)));
    const auto bookmark = bookmarkOf(folder);
    EXPECT_TRUE(scopes.start(FileUrl(folder)));

    LinuxAccessScopes nextScopes;
    LinuxBookmarks next(nextScopes);
    EXPECT_FALSE(nextScopes.start(FileUrl(folder)));
    ASSERT_TRUE(next.resolve(bookmark));
    EXPECT_TRUE(nextScopes.start(FileUrl(folder)));
}

TEST_P(LinuxBookmarksTest, WithoutPrivilegeTheFolderIsSearchedFor) {
    const auto bookmark = bookmarkOf(scratch.makeFolder("a/b/c/Projects"));
    expectUnprivileged(bookmark, scratch.at("a/b/c/Projects"));
    scratch.rename("a/b/c/Projects", "a/b/c/Work");
    scratch.makeFolder("a/b/c/Projects");
    expectUnprivileged(bookmark, stale(scratch.at("a/b/c/Work")));
    scratch.makeFolder("x/y/z");
    scratch.rename("a/b/c/Work", "x/y/z/Work");
    expectUnprivileged(bookmark, stale(scratch.at("x/y/z/Work")));
    scratch.rename("x", "w");
    expectUnprivileged(bookmark, stale(scratch.at("w/y/z/Work")));
    scratch.remove("w/y/z/Work");
    expectUnprivileged(bookmark, "error 4");
}

TEST_P(LinuxBookmarksTest, TheSearchClimbsOutOfFoldersThatMayNotBeRead) {
    const auto bookmark = bookmarkOf(scratch.makeFolder("a/b/Projects"));
    scratch.makeFolder("c");
    scratch.rename("a/b/Projects", "c/Work");
    ASSERT_EQ(::chmod(scratch.at("a/b").c_str(), 0711), 0);
    expectUnprivileged(bookmark, stale(scratch.at("c/Work")));
}

TEST_P(LinuxBookmarksTest, TheSearchStartsFromAnAncestorThatLeftALinkBehind) {
    const auto bookmark = bookmarkOf(scratch.makeFolder("a/b/Projects"));
    scratch.makeFolder("far/away");
    scratch.rename("a/b", "far/away/b");
    scratch.link("a/b", scratch.at("far/away/b"));
    scratch.rename("far/away/b/Projects", "far/away/b/Work");
    ASSERT_EQ(::chmod(scratch.at("far").c_str(), 0711), 0); // no way there from above
    expectUnprivileged(bookmark, stale(scratch.at("far/away/b/Work")));
}

TEST_P(LinuxBookmarksTest, AFolderThatMayNotBeSearchedIsRefusedForReading) {
    const auto bookmark = bookmarkOf(scratch.makeFolder("a/Projects"));
    ASSERT_EQ(::chmod(scratch.at("a/Projects").c_str(), 0666), 0);
    withoutPrivilege([&] {
        EXPECT_EQ(bookmarks.resolve(bookmark).error().description,
                  "You do not have permission to open the folder \"Projects\".");
    });
    expectUnprivileged(bookmark, "error 257");
    ASSERT_EQ(::chmod(scratch.at("a").c_str(), 0700), 0);
    expectUnprivileged(bookmark, "error 257");
    ASSERT_EQ(::chmod(scratch.at("a/Projects").c_str(), 0777), 0);
    expectUnprivileged(bookmark, "error 257");
}

TEST_P(LinuxBookmarksTest, AFolderThatMayNotBeWrittenToIsRefusedForWriting) {
    const auto bookmark = bookmarkOf(scratch.makeFolder("Projects"));
    ASSERT_EQ(::chmod(scratch.at("Projects").c_str(), 0755), 0);
    expectUnprivileged(bookmark, "error 513");
    withoutPrivilege([&] {
        EXPECT_EQ(bookmarks.resolve(bookmark).error().description,
                  "You do not have permission to create files in the folder \"Projects\".");
    });
    scratch.rename("Projects", "Work");
    expectUnprivileged(bookmark, "error 513");
    withoutPrivilege([&] {
        LinuxAccessScopes own;
        std::ignore = LinuxBookmarks(own).resolve(bookmark);
        EXPECT_FALSE(own.start(FileUrl(scratch.at("Work"))));
    });
}

TEST_P(LinuxBookmarksTest, AFolderThatMayNotBeSearchedCannotBeBookmarked) {
    const auto folder = scratch.makeFolder("Projects");
    ASSERT_EQ(::chmod(folder.c_str(), 0666), 0);
    withoutPrivilege([&] { EXPECT_EQ(bookmarks.create(FileUrl(folder)).error().code, 257); });
}

TEST_P(LinuxBookmarksTest, ABookmarkMadeWithoutPrivilegeIsTheSame) {
    const auto folder = scratch.makeFolder("Projects");
    const auto bookmark = bookmarkOf(folder);
    withoutPrivilege([&] { EXPECT_EQ(bookmarkOf(folder), bookmark); });
}

} // namespace
} // namespace blankwell
