#include "platform/linux/DolphinFolder.h"

#include <gtest/gtest.h>

#include <set>

namespace blankwell {
namespace {

struct DolphinFolderTest : testing::Test {
    std::optional<FileUrl> folderCaptioned(std::string_view caption) {
        return folderInDolphinWindow(caption, candidates, questions());
    }

    std::vector<FileUrl> foldersCaptioned(std::string_view caption) {
        return foldersInDolphinWindow(caption, candidates, questions());
    }

    DolphinQuestions questions() {
        return {
            .isOpen = [this](const FileUrl& folder) { return answer(open.contains(folder)); },
            .isEnabled =
                [this](const std::string& action) { return answer(enabled.contains(action)); },
            .isWritable = [this](const FileUrl& folder) { return !locked.contains(folder); },
        };
    }

    std::optional<bool> answer(bool value) const {
        return hangs ? std::nullopt : std::optional(value);
    }

    std::vector<FileUrl> candidates{FileUrl("/u"), FileUrl("/u/a"), FileUrl("/u/b")};
    std::set<FileUrl> open;
    std::set<std::string> enabled;
    std::set<FileUrl> locked;
    bool hangs = false;
};

TEST_F(DolphinFolderTest, IsTheCandidateThatIsOpen) {
    open = {FileUrl("/u/b")};
    EXPECT_EQ(folderCaptioned("b"), FileUrl("/u/b"));
}

TEST_F(DolphinFolderTest, IsNoneWhereNoCandidateIsOpen) {
    open = {FileUrl("/elsewhere/b")};
    EXPECT_EQ(folderCaptioned("b"), std::nullopt);
}

TEST_F(DolphinFolderTest, OfSeveralTabsNoneIsKnownToBeInFront) {
    open = {FileUrl("/u/a"), FileUrl("/elsewhere/a")};
    enabled = {"activate_next_tab"};
    EXPECT_EQ(folderCaptioned("a"), std::nullopt);
}

TEST_F(DolphinFolderTest, OfASplitTabNeitherHalfIsKnownToBeInFront) {
    open = {FileUrl("/u/a"), FileUrl("/elsewhere/a")};
    enabled = {"move_to_inactive_split_view"};
    EXPECT_EQ(folderCaptioned("a"), std::nullopt);
}

TEST_F(DolphinFolderTest, AFolderThatCouldBeALockedOtherHalfIsNone) {
    open = {FileUrl("/u/a"), FileUrl("/elsewhere/a")};
    locked = {FileUrl("/u/a")};
    EXPECT_EQ(folderCaptioned("a"), std::nullopt);
}

TEST_F(DolphinFolderTest, ACaptionThatIsAnOpenPathIsExactAmongTabsAndHalves) {
    open = {FileUrl("/deep/down"), FileUrl("/u/a")};
    enabled = {"activate_next_tab", "move_to_inactive_split_view"};
    EXPECT_EQ(folderCaptioned("/deep/down"), FileUrl("/deep/down"));
}

TEST_F(DolphinFolderTest, ACaptionThatIsAPathButNotOpenIsNone) {
    EXPECT_EQ(folderCaptioned("/deep/down"), std::nullopt);
}

TEST_F(DolphinFolderTest, NoAnswerIsNone) {
    open = {FileUrl("/u/a")};
    hangs = true;
    EXPECT_EQ(folderCaptioned("a"), std::nullopt);
    EXPECT_EQ(folderCaptioned("/u/a"), std::nullopt);
}

TEST_F(DolphinFolderTest, OfSeveralTabsAllThatCanBeThoughtOfAreKnownTheLikeliestLast) {
    open = {FileUrl("/u"), FileUrl("/u/b"), FileUrl("/elsewhere")};
    enabled = {"activate_next_tab"};
    EXPECT_EQ(foldersCaptioned("b"), (std::vector{FileUrl("/u/b"), FileUrl("/u")}));
}

TEST_F(DolphinFolderTest, TheFolderThatTheCaptionNamesIsKnownOnce) {
    open = {FileUrl("/deep/down"), FileUrl("/u/a")};
    EXPECT_EQ(foldersCaptioned("/deep/down"),
              (std::vector{FileUrl("/u/a"), FileUrl("/deep/down")}));
    EXPECT_EQ(foldersCaptioned("/u/a"), (std::vector{FileUrl("/u/a")}));
}

TEST_F(DolphinFolderTest, WithoutAnswersNoFoldersAreKnown) {
    open = {FileUrl("/u/a")};
    hangs = true;
    EXPECT_TRUE(foldersCaptioned("/u/a").empty());
}

TEST(DolphinObjectTest, IsNamedByProcessAndRole) {
    EXPECT_EQ(dolphinObject({.role = "Dolphin#12", .processId = 345}),
              (DolphinObject{"org.kde.dolphin-345", "/dolphin/Dolphin_12"}));
}

TEST(DolphinObjectTest, AWindowThatDoesNotSayItHasNone) {
    EXPECT_EQ(dolphinObject({.role = "Dolphin#12"}), std::nullopt);
    EXPECT_EQ(dolphinObject({.role = "Dolphin#", .processId = 345}), std::nullopt);
    EXPECT_EQ(dolphinObject({.role = "Dolphin#1/x", .processId = 345}), std::nullopt);
    EXPECT_EQ(dolphinObject({.role = "Konqueror#1", .processId = 345}), std::nullopt);
    EXPECT_EQ(dolphinObject({.role = "", .processId = 345}), std::nullopt);
}

} // namespace
} // namespace blankwell
