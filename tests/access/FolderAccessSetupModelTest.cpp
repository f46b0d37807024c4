#include "access/FolderAccessSetupModel.h"

#include "support/FakeFolderAccess.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using enum FolderGrant;

/// What the section shows as one value.
struct Shown {
    std::string summary;
    std::vector<std::string> roots;
    std::string status;

    friend bool operator==(const Shown&, const Shown&) = default;
};

void PrintTo(const Shown& shown, std::ostream* out) {
    *out << shown.summary << testing::PrintToString(shown.roots) << shown.status;
}

struct FolderAccessSetupModelTest : testing::Test {
    void save(const std::string& path) {
        ASSERT_TRUE(platform.store.saveBookmark(FileUrl(path), FileUrl(path)));
    }

    Shown shown() const {
        Shown result{.summary = model.summary(), .roots = {}, .status = model.statusMessage()};
        for (const auto& row : model.rows()) {
            result.roots.push_back(row.name + " (" + row.symbol + ") " + row.root.path());
        }
        return result;
    }

    FakeFolderAccess platform;
    int changes = 0;
    FolderAccessSetupModel model{{
                                     .folderAccess = platform.access,
                                     .store = platform.store,
                                     .fileSystem = platform.files,
                                     .account = platform.account,
                                     .folders = platform.folders,
                                 },
                                 [this] { ++changes; }};
};

TEST(FolderAccessSetupTextsTest, AreTheseAndNoOthers) {
    EXPECT_EQ(folderAccessSetupTexts,
              (FolderAccessSetupTexts{"folder.badge.gearshape", "Folder Access", "Forget Access",
                                      "xmark.circle"}));
    EXPECT_THAT(folderGrantButtons,
                ElementsAre(FolderGrantButton{homeFolder, "Grant Home Folder..."},
                            FolderGrantButton{otherFolders, "Add Other Folders..."},
                            FolderGrantButton{cloudFolders, "Add Cloud Folders..."},
                            FolderGrantButton{externalVolumes, "Add External Volumes..."}));
}

TEST_F(FolderAccessSetupModelTest, WithoutRootsTheListIsEmptyAndThereIsNoStatus) {
    model.appear();
    EXPECT_EQ(shown(), (Shown{"No saved folder roots.", {}, ""}));
    EXPECT_EQ(changes, 1);
}

TEST_F(FolderAccessSetupModelTest, TheSummaryCountsTheRoots) {
    save("/Users/u/a");
    model.appear();
    EXPECT_EQ(model.summary(), "1 saved folder root.");
    save("/Users/u/b");
    save("/Users/u/c");
    model.appear();
    EXPECT_EQ(model.summary(), "3 saved folder roots.");
}

TEST_F(FolderAccessSetupModelTest, TheListIsReadWhenTheSectionAppears) {
    save("/Users/u/a");
    EXPECT_EQ(model.summary(), "No saved folder roots.");
    model.appear();
    EXPECT_EQ(shown(), (Shown{"1 saved folder root.", {"a (folder) /Users/u/a"}, ""}));
}

TEST_F(FolderAccessSetupModelTest, OnlyTheProcessesOwnHomeIsCalledHome) {
    platform.account.containerHome = FileUrl("/container/./data");
    save("/Users/u");
    save("/container/data");
    save("/container/data/x");
    model.appear();
    EXPECT_THAT(shown().roots, ElementsAre("Home (house) /container/data",
                                           "x (folder) /container/data/x", "u (folder) /Users/u"));
}

TEST_F(FolderAccessSetupModelTest, OtherRootsHaveTheNamesThatTheFileManagerGivesThem) {
    platform.files.displayNames.emplace(FileUrl("/Users/u/x"), "iCloud Drive");
    save("/Users/u/x");
    save("/");
    model.appear();
    EXPECT_THAT(shown().roots, ElementsAre("/ (folder) /", "iCloud Drive (folder) /Users/u/x"));
}

TEST_F(FolderAccessSetupModelTest, RootsInsideAFolderOfVolumesAreDrives) {
    platform.folders.volumeFolders = {FileUrl("/media/u"), FileUrl("/Volumes")};
    platform.account.containerHome = FileUrl("/Volumes/Home");
    for (const auto* path : {"/Volumes", "/Volumes/Disk", "/Volumes/Home", "/VolumesX", "/media/u",
                             "/media/u/Stick"}) {
        save(path);
    }
    model.appear();
    std::map<std::string, std::string> symbols;
    for (const auto& row : model.rows()) {
        symbols[row.root.path()] = row.symbol;
    }
    EXPECT_EQ(symbols, (std::map<std::string, std::string>{
                           {"/Volumes", "folder"},
                           {"/Volumes/Disk", "externaldrive"},
                           {"/Volumes/Home", "externaldrive"},
                           {"/VolumesX", "folder"},
                           {"/media/u", "folder"},
                           {"/media/u/Stick", "externaldrive"},
                       }));
}

TEST_F(FolderAccessSetupModelTest, GrantingTheHomeFolderAndForgettingIt) {
    save("/Users/other");
    model.appear();
    platform.openPanel.willChoose({FileUrl("/Users/u")});
    model.grant(homeFolder);
    EXPECT_EQ(shown(), (Shown{"2 saved folder roots.",
                              {"other (folder) /Users/other", "u (folder) /Users/u"},
                              "Saved access to u."}));

    model.forget(FileUrl("/Users/u"));
    EXPECT_EQ(
        shown(),
        (Shown{"1 saved folder root.", {"other (folder) /Users/other"}, "Removed access to u."}));
    EXPECT_EQ(changes, 3);
}

TEST_F(FolderAccessSetupModelTest, ACancelledHomeGrantSaysSoAndReadsNothing) {
    model.appear();
    save("/Users/u/a");
    model.grant(homeFolder);
    EXPECT_EQ(shown(), (Shown{"No saved folder roots.",
                              {},
                              "Blankwell+ needs access to u before it can create files there."}));
    EXPECT_EQ(changes, 2);
}

TEST_F(FolderAccessSetupModelTest, GrantsOfSeveralFoldersAreCounted) {
    platform.openPanel.willChoose({FileUrl("/Users/u/a"), FileUrl("/Users/u/b")});
    model.grant(otherFolders);
    EXPECT_EQ(model.statusMessage(), "Saved access to 2 folder roots.");
    EXPECT_EQ(model.summary(), "2 saved folder roots.");
}

TEST_F(FolderAccessSetupModelTest, AGrantOfNothingSaysSo) {
    save("/Users/u/a");
    platform.openPanel.willChoose({});
    model.grant(otherFolders);
    EXPECT_EQ(model.statusMessage(), "No folder roots selected.");
    EXPECT_EQ(model.summary(), "1 saved folder root.");
}

TEST_F(FolderAccessSetupModelTest, EachButtonOpensItsOwnPanel) {
    platform.files.addFolder("/Users/u/Library/CloudStorage");
    for (const auto& button : folderGrantButtons) {
        model.grant(button.grant);
    }
    EXPECT_THAT(
        platform.openPanel.shown,
        ElementsAre(testing::Field(&OpenPanelConfiguration::title, "Allow Home Folder Access"),
                    testing::Field(&OpenPanelConfiguration::title, "Add Other Folders"),
                    testing::Field(&OpenPanelConfiguration::title, "Add Cloud Folder Access"),
                    testing::Field(&OpenPanelConfiguration::title, "Add External Volume Access")));
}

TEST_F(FolderAccessSetupModelTest, RootsOfAFlowThatFailedHalfWayAreListedAfterTheNextAction) {
    platform.bookmarks.failFor.insert("/Volumes/B");
    platform.openPanel.willChoose({FileUrl("/Volumes/A"), FileUrl("/Volumes/B")});
    model.grant(externalVolumes);
    EXPECT_EQ(model.summary(), "No saved folder roots.");
    EXPECT_THAT(model.statusMessage(), testing::Not(testing::StartsWith("Saved")));

    model.forget(FileUrl("/Users/u/other"));
    EXPECT_EQ(shown(), (Shown{"1 saved folder root.",
                              {"A (externaldrive) /Volumes/A"},
                              "Removed access to other."}));
}

TEST_F(FolderAccessSetupModelTest, ARootThatCannotBeForgottenStaysWithTheReason) {
    save("/Users/u/a");
    platform.domains.group.failWith = cocoaError(CocoaCode::fileWriteUnknown, "Disk full.");
    model.forget(FileUrl("/Users/u/a"));
    EXPECT_EQ(shown(), (Shown{"1 saved folder root.", {"a (folder) /Users/u/a"}, "Disk full."}));
}

} // namespace
} // namespace blankwell
