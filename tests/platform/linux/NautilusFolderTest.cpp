#include "platform/linux/NautilusFolder.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

struct NautilusFolderTest : testing::Test {
    std::optional<FileUrl> folderOf(const std::vector<std::string>& tabs,
                                    std::string title = "") const {
        const DesktopWindow window{.title = std::move(title), .objectPath = "/window/1"};
        return folderInNautilusWindow(window,
                                      {{"/window/1", tabs}, {"/window/2", {"file:///other"}}});
    }
};

TEST_F(NautilusFolderTest, IsWhatTheWindowsOnlyTabShows) {
    EXPECT_EQ(folderOf({"file:///a/b%20c"}, "whatever"), FileUrl("/a/b c"));
}

TEST_F(NautilusFolderTest, OfSeveralTabsIsTheOneThatIsCalledAsTheWindow) {
    EXPECT_EQ(folderOf({"file:///a/b", "file:///c/d%23", "trash:///"}, "d#"), FileUrl("/c/d#"));
}

TEST_F(NautilusFolderTest, OfSeveralTabsWithThatNameIsNone) {
    EXPECT_EQ(folderOf({"file:///a/b", "file:///c/b"}, "b"), std::nullopt);
}

TEST_F(NautilusFolderTest, SeveralTabsWithTheSameFolderAreOneFolder) {
    EXPECT_EQ(folderOf({"file:///a/b", "file:///c", "file:///a/b"}, "b"), FileUrl("/a/b"));
}

TEST_F(NautilusFolderTest, OfSeveralTabsWithoutThatNameIsNone) {
    EXPECT_EQ(folderOf({"file:///a/b", "file:///home/u"}, "Home"), std::nullopt);
}

TEST_F(NautilusFolderTest, APlaceThatIsNoFolderOnADiskIsNone) {
    EXPECT_EQ(folderOf({"trash:///"}), std::nullopt);
    EXPECT_EQ(folderOf({"x-nautilus-search://7/"}), std::nullopt);
    EXPECT_EQ(folderOf({"sftp://host/a"}), std::nullopt);
    EXPECT_EQ(folderOf({}), std::nullopt);
}

TEST_F(NautilusFolderTest, AWindowThatNautilusDoesNotListIsNone) {
    EXPECT_EQ(folderInNautilusWindow({.objectPath = "/window/3"}, {{"/window/1", {"file:///a"}}}),
              std::nullopt);
    EXPECT_EQ(folderInNautilusWindow({}, {{"/window/1", {"file:///a"}}}), std::nullopt);
}

TEST_F(NautilusFolderTest, TheFoldersOfAllTabsAreThoseOnADisk) {
    const BusMessage::StringLists openWindows{
        {"/window/1", {"file:///a%20b", "trash:///", "file:///c"}}, {"/window/2", {"file:///d"}}};
    EXPECT_EQ(foldersInNautilusWindow({.objectPath = "/window/1"}, openWindows),
              (std::vector{FileUrl("/a b"), FileUrl("/c")}));
    EXPECT_TRUE(foldersInNautilusWindow({.objectPath = "/window/3"}, openWindows).empty());
}

} // namespace
} // namespace blankwell
