#include "access/SecurityScopedBookmarkStore.h"

#include "support/FakeBookmarks.h"
#include "support/FakeLog.h"
#include "support/FakeTextOrder.h"
#include "support/FakeUserDefaults.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const SystemError corrupt = cocoaError(CocoaCode::fileReadCorruptFile, "damaged");
const SystemError notMounted = cocoaError(CocoaCode::fileReadUnknown, "not mounted");
const SystemError refused = cocoaError(CocoaCode::fileReadNoPermission, "refused");

std::string keyOf(const std::string& path) {
    return "securityScopedFolderBookmark." + path;
}

struct SecurityScopedBookmarkStoreTest : testing::Test {
    void save(const std::string& path) {
        ASSERT_TRUE(store.saveBookmark(FileUrl(path), FileUrl(path)));
    }

    /// Where the root of the saved bookmark is said to be from now on.
    void moveTo(const std::string& path, const std::string& newPath) {
        bookmarks.outcomes.insert_or_assign(path, ResolvedBookmark{FileUrl(newPath), true});
    }

    void failToResolve(const std::string& path, const SystemError& error) {
        bookmarks.outcomes.insert_or_assign(path, std::unexpected(error));
    }

    std::string accessTo(const std::string& target) {
        const auto url = store.savedAccessURL(FileUrl(target));
        return url ? url->path() : "(none)";
    }

    std::vector<std::string> roots() const {
        std::vector<std::string> paths;
        for (const auto& root : store.savedFolderRoots()) {
            paths.push_back(root.path());
        }
        return paths;
    }

    FakePreferenceDomains domains;
    FakeBookmarks bookmarks;
    FakeTextOrder order;
    FakeLog log;
    SecurityScopedBookmarkStore store{domains, bookmarks, order, log};
};

TEST_F(SecurityScopedBookmarkStoreTest, SavesUnderTheStandardizedPath) {
    ASSERT_TRUE(store.saveBookmark(FileUrl("/Users/a/./Docs/"), FileUrl("/Users//a/x/../Docs/")));
    EXPECT_THAT(domains.group.written, ElementsAre(keyOf("/Users/a/Docs")));
    EXPECT_EQ(domains.group.values.at(keyOf("/Users/a/Docs")),
              PropertyValue(FakeBookmarks::blob("/Users/a/./Docs")));
}

TEST_F(SecurityScopedBookmarkStoreTest, ThePrefixHasTwentyNineCharacters) {
    EXPECT_EQ(keyOf("").size(), 29U);
}

TEST_F(SecurityScopedBookmarkStoreTest, KeepsTheBookmarksInTheGroupsDomain) {
    save("/a");
    EXPECT_THAT(domains.opened, testing::Each("BLNKWLPLUS.app.blankwell.BlankwellPlus"));
    EXPECT_THAT(domains.own.values, IsEmpty());
}

TEST_F(SecurityScopedBookmarkStoreTest, UsesTheOwnDomainWhereTheGroupsDoesNotOpen) {
    domains.suiteOpens = false;
    save("/a");
    EXPECT_TRUE(domains.own.values.contains(keyOf("/a")));
    EXPECT_EQ(accessTo("/a/b"), "/a");
    EXPECT_THAT(domains.group.values, IsEmpty());
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(SecurityScopedBookmarkStoreTest, OpensTheDomainAnewForEachOperation) {
    save("/a");
    domains.suiteOpens = false;
    EXPECT_EQ(accessTo("/a"), "(none)");
    domains.suiteOpens = true;
    EXPECT_EQ(accessTo("/a"), "/a");
}

TEST_F(SecurityScopedBookmarkStoreTest, ABookmarkThatCannotBeMadeIsTheSystemsError) {
    bookmarks.failCreateWith = refused;
    const auto saved = store.saveBookmark(FileUrl("/a"), FileUrl("/a"));
    ASSERT_FALSE(saved);
    using Error = SecurityScopedFolderAccessError;
    EXPECT_EQ(saved.error(),
              Error{Error::BookmarkCreationFailed{SecurityScopedBookmarkError{refused}}});
    EXPECT_EQ(saved.error().description(), "refused");
    EXPECT_THAT(domains.group.written, IsEmpty());
}

TEST_F(SecurityScopedBookmarkStoreTest, ABookmarkThatCannotBeKeptIsAnErrorToo) {
    domains.group.failWith = SystemError{SystemError::Domain::cocoa, 640, "disk full"};
    const auto saved = store.saveBookmark(FileUrl("/a"), FileUrl("/a"));
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().description(), "disk full");
}

TEST_F(SecurityScopedBookmarkStoreTest, ARootThatWasNeverSavedResolvesToNothingSilently) {
    EXPECT_FALSE(store.resolveBookmark(FileUrl("/a")));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(SecurityScopedBookmarkStoreTest, AValueThatIsNotDataIsNoBookmark) {
    domains.group.values[keyOf("/a")] = std::string("text");
    EXPECT_FALSE(store.resolveBookmark(FileUrl("/a")));
    EXPECT_THAT(domains.group.written, IsEmpty());
}

TEST_F(SecurityScopedBookmarkStoreTest, AStaleBookmarkIsReplacedUnderTheSameKey) {
    save("/a");
    moveTo("/a", "/moved/a");
    EXPECT_EQ(store.resolveBookmark(FileUrl("/a")), FileUrl("/moved/a"));
    EXPECT_THAT(domains.group.written, ElementsAre(keyOf("/a"), keyOf("/a")));
    EXPECT_EQ(domains.group.values.at(keyOf("/a")), PropertyValue(FakeBookmarks::blob("/moved/a")));
    EXPECT_EQ(domains.group.values.size(), 1U);
}

TEST_F(SecurityScopedBookmarkStoreTest, AnUnchangedBookmarkIsNotWrittenAgain) {
    save("/a");
    EXPECT_EQ(store.resolveBookmark(FileUrl("/a")), FileUrl("/a"));
    EXPECT_EQ(domains.group.written.size(), 1U);
    EXPECT_EQ(bookmarks.created, 1);
}

TEST_F(SecurityScopedBookmarkStoreTest, AStaleBookmarkThatCannotBeRefreshedStillWorks) {
    save("/a");
    moveTo("/a", "/moved/a");
    bookmarks.failCreateWith = refused;
    EXPECT_EQ(store.resolveBookmark(FileUrl("/a")), FileUrl("/moved/a"));
    EXPECT_EQ(domains.group.values.at(keyOf("/a")), PropertyValue(FakeBookmarks::blob("/a")));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(SecurityScopedBookmarkStoreTest, ADamagedBookmarkIsDiscardedAndLoggedAsANotice) {
    save("/a");
    failToResolve("/a", corrupt);
    EXPECT_FALSE(store.resolveBookmark(FileUrl("/a/x/../")));
    EXPECT_THAT(roots(), IsEmpty());
    EXPECT_THAT(log.lines, ElementsAre(FakeLog::Line{
                               LogLevel::notice, "SecurityScopedBookmarks",
                               "Discarding invalid security-scoped bookmark for /a: damaged"}));
}

TEST_F(SecurityScopedBookmarkStoreTest, AFolderThatCannotBeReachedKeepsItsBookmark) {
    save("/Volumes/usb");
    const auto before = domains.group.values;
    failToResolve("/Volumes/usb", notMounted);
    EXPECT_EQ(accessTo("/Volumes/usb/x"), "(none)");
    EXPECT_EQ(domains.group.values, before);
    EXPECT_THAT(roots(), ElementsAre("/Volumes/usb"));
    EXPECT_THAT(log.lines,
                ElementsAre(FakeLog::Line{LogLevel::error, "SecurityScopedBookmarks",
                                          "Keeping security-scoped bookmark for /Volumes/usb "
                                          "despite a transient resolve failure: not mounted"}));

    bookmarks.outcomes.clear();
    EXPECT_EQ(accessTo("/Volumes/usb/x"), "/Volumes/usb");
}

TEST_F(SecurityScopedBookmarkStoreTest, OnlyTheCodeForDamagedDataOfTheCocoaDomainDiscards) {
    save("/a");
    failToResolve("/a", SystemError{SystemError::Domain::posix, 259, "posix"});
    EXPECT_FALSE(store.resolveBookmark(FileUrl("/a")));
    EXPECT_THAT(roots(), ElementsAre("/a"));
}

TEST_F(SecurityScopedBookmarkStoreTest, RootsAreListedInTheFileManagersOrder) {
    for (const auto* path : {"/f/Folder 10", "/f/folder 1", "/b", "/f/Folder 2"}) {
        save(path);
    }
    domains.group.values["quickCreateShortcut"] = Bytes{};
    domains.group.values["SecurityScopedFolderBookmark./x"] = Bytes{};
    EXPECT_THAT(roots(), ElementsAre("/b", "/f/folder 1", "/f/Folder 2", "/f/Folder 10"));
}

TEST_F(SecurityScopedBookmarkStoreTest, RootsAreStandardizedWhateverTheKeySays) {
    domains.group.values[keyOf("/a//b/../c/")] = Bytes{};
    EXPECT_THAT(roots(), ElementsAre("/a/c"));
}

TEST_F(SecurityScopedBookmarkStoreTest, AKeyThatIsNotStandardizedGivesNoAccess) {
    domains.group.values[keyOf("/a//c")] = FakeBookmarks::blob("/a/c");
    EXPECT_FALSE(store.resolveBookmark(FileUrl("/a/c")));
    EXPECT_EQ(accessTo("/a/c"), "(none)");
}

TEST_F(SecurityScopedBookmarkStoreTest, AForgottenRootIsGoneAndAnUnknownOneIsNoError) {
    save("/a");
    EXPECT_TRUE(store.removeBookmark(FileUrl("/a/x/../")));
    EXPECT_THAT(roots(), IsEmpty());
    EXPECT_TRUE(store.removeBookmark(FileUrl("/never")));
}

TEST_F(SecurityScopedBookmarkStoreTest, ARootCoversItselfButNotALongerName) {
    save("/Users/a/Doc");
    EXPECT_EQ(accessTo("/Users/a/Doc"), "/Users/a/Doc");
    EXPECT_EQ(accessTo("/Users/a/Documents"), "(none)");
}

TEST_F(SecurityScopedBookmarkStoreTest, TheFileSystemRootCoversOnlyItself) {
    save("/");
    EXPECT_EQ(accessTo("/"), "/");
    EXPECT_EQ(accessTo("/Users"), "(none)");
}

TEST_F(SecurityScopedBookmarkStoreTest, TheMostSpecificRootWins) {
    save("/Users/a");
    save("/Users/a/Projects");
    EXPECT_EQ(accessTo("/Users/a/Projects/x"), "/Users/a/Projects");
    EXPECT_EQ(accessTo("/Users/a/x"), "/Users/a");
}

TEST_F(SecurityScopedBookmarkStoreTest, TheLengthOfTheResolvedPathDecides) {
    save("/Users/a");
    save("/Users/a/Projects");
    moveTo("/Users/a", "/Volumes/a very long name of another disk/a");
    EXPECT_EQ(accessTo("/Users/a/Projects/x"), "/Volumes/a very long name of another disk/a");
}

TEST_F(SecurityScopedBookmarkStoreTest, LengthIsCountedInCharactersNotBytes) {
    save("/a");
    save("/a/b");
    moveTo("/a", "/ééé"); // four characters in seven bytes
    moveTo("/a/b", "/12345");
    EXPECT_EQ(accessTo("/a/b"), "/12345");
}

TEST_F(SecurityScopedBookmarkStoreTest, LengthIsThatOfTheStandardizedPath) {
    save("/a");
    save("/a/b");
    moveTo("/a", "/a/long/way/../../../x1");
    moveTo("/a/b", "/x/2");
    EXPECT_EQ(accessTo("/a/b"), "/x/2");
}

TEST_F(SecurityScopedBookmarkStoreTest, OfEquallyLongRootsTheEarlierWins) {
    save("/a");
    save("/a/b");
    moveTo("/a", "/x1");
    moveTo("/a/b", "/x2");
    EXPECT_EQ(accessTo("/a/b/c"), "/x1");
}

TEST_F(SecurityScopedBookmarkStoreTest, ADamagedRootIsSkippedForTheNext) {
    save("/Users/a");
    save("/Users/a/Projects");
    failToResolve("/Users/a/Projects", corrupt);
    EXPECT_EQ(accessTo("/Users/a/Projects/x"), "/Users/a");
    EXPECT_THAT(roots(), ElementsAre("/Users/a"));

    save("/Users/a/Projects");
    bookmarks.outcomes.clear();
    failToResolve("/Users/a", corrupt);
    EXPECT_EQ(accessTo("/Users/a/Projects/x"), "/Users/a/Projects");
    EXPECT_THAT(roots(), ElementsAre("/Users/a/Projects"));
}

TEST_F(SecurityScopedBookmarkStoreTest, RootsThatDoNotCoverTheTargetAreNotResolved) {
    save("/a");
    save("/b");
    failToResolve("/b", corrupt);
    EXPECT_EQ(accessTo("/a/x"), "/a");
    EXPECT_THAT(roots(), ElementsAre("/a", "/b"));
}

} // namespace
} // namespace blankwell
