#pragma once

#include "platform/Bookmarks.h"

#include <gtest/gtest.h>

#include <string_view>

namespace blankwell {

/// What every `Bookmarks` does. `World` has `bookmarks()`, the port under test, and acts on the
/// folders it leads to: `makeFolder(name)` returns the URL of a new one, `missingFolder()` one that
/// is not there, `move(folder, name)` renames a folder and returns its new URL, `remove(folder)`
/// deletes it.
template <typename World>
struct BookmarksContract : testing::Test {
    World world;
};

TYPED_TEST_SUITE_P(BookmarksContract);

TYPED_TEST_P(BookmarksContract, ABookmarkLeadsBackToItsFolder) {
    const FileUrl folder = this->world.makeFolder("Projects");
    const auto bookmark = this->world.bookmarks().create(folder);
    ASSERT_TRUE(bookmark);
    EXPECT_EQ(this->world.bookmarks().resolve(*bookmark),
              (ResolvedBookmark{.url = folder, .isStale = false}));
}

TYPED_TEST_P(BookmarksContract, BookmarksOfTwoFoldersLeadToEach) {
    const FileUrl one = this->world.makeFolder("One");
    const FileUrl two = this->world.makeFolder("Two");
    const auto toOne = this->world.bookmarks().create(one);
    const auto toTwo = this->world.bookmarks().create(two);
    ASSERT_TRUE(toOne && toTwo);
    EXPECT_EQ(this->world.bookmarks().resolve(*toTwo)->url, two);
    EXPECT_EQ(this->world.bookmarks().resolve(*toOne)->url, one);
}

TYPED_TEST_P(BookmarksContract, AMissingFolderCannotBeBookmarked) {
    const auto bookmark = this->world.bookmarks().create(this->world.missingFolder());
    ASSERT_FALSE(bookmark);
    EXPECT_TRUE(bookmark.error().is(CocoaCode::fileNoSuchFile));
    EXPECT_FALSE(bookmark.error().description.empty());
}

TYPED_TEST_P(BookmarksContract, ARenamedFolderIsFoundAndStale) {
    const FileUrl folder = this->world.makeFolder("Projects");
    const auto bookmark = this->world.bookmarks().create(folder);
    ASSERT_TRUE(bookmark);
    const FileUrl renamed = this->world.move(folder, "Old Projects");
    EXPECT_EQ(this->world.bookmarks().resolve(*bookmark),
              (ResolvedBookmark{.url = renamed, .isStale = true}));
}

TYPED_TEST_P(BookmarksContract, ADeletedFolderIsAnErrorThatMayPass) {
    const FileUrl folder = this->world.makeFolder("Projects");
    const auto bookmark = this->world.bookmarks().create(folder);
    ASSERT_TRUE(bookmark);
    this->world.remove(folder);
    const auto resolved = this->world.bookmarks().resolve(*bookmark);
    ASSERT_FALSE(resolved);
    EXPECT_TRUE(resolved.error().is(CocoaCode::fileNoSuchFile));
    EXPECT_FALSE(resolved.error().description.empty());
}

TYPED_TEST_P(BookmarksContract, OtherBytesAreNoBookmark) {
    for (const std::string_view bytes : {"", "x", "<plist/>", "bookmar"}) {
        const auto resolved = this->world.bookmarks().resolve(bytesOf(bytes));
        ASSERT_FALSE(resolved) << bytes;
        EXPECT_TRUE(resolved.error().is(CocoaCode::fileReadCorruptFile)) << bytes;
    }
}

REGISTER_TYPED_TEST_SUITE_P(BookmarksContract, ABookmarkLeadsBackToItsFolder,
                            BookmarksOfTwoFoldersLeadToEach, AMissingFolderCannotBeBookmarked,
                            ARenamedFolderIsFoundAndStale, ADeletedFolderIsAnErrorThatMayPass,
                            OtherBytesAreNoBookmark);

} // namespace blankwell
