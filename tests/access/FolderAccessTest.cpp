#include "access/FolderAccess.h"

#include "access/SecurityScopedBookmarkStore.h"
#include "filetypes/FileCreator.h"
#include "filetypes/FileTypeCatalog.h"
#include "support/FakeFolderAccess.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Error = SecurityScopedFolderAccessError;

const SystemError refused = cocoaError(CocoaCode::fileReadNoPermission, "refused");

/// What a flow came to: the folders it granted, or the error's text.
std::vector<std::string> outcome(const FolderAccess::Result<std::vector<FileUrl>>& result) {
    std::vector<std::string> texts;
    if (!result) {
        return {result.error().description()};
    }
    for (const auto& url : *result) {
        texts.push_back(url.path());
    }
    return texts;
}

std::string outcome(const FolderAccess::Result<FileUrl>& result) {
    return result ? result->path() : result.error().description();
}

struct FolderAccessTest : testing::Test, FakeFolderAccess {
    std::string create(const std::string& folder, AccessPrompt prompt = AccessPrompt::allowed) {
        const auto result = access.createWithFolderAccess(FileUrl(folder), prompt,
                                                          *FileTypeCatalog::definition("txt"));
        return result ? result->path() : description(result.error());
    }

    void grant(const std::string& folder) {
        ASSERT_TRUE(store.saveBookmark(FileUrl(folder), FileUrl(folder)));
        scopes.grants.insert(FileUrl(folder));
    }

    [[nodiscard]] std::vector<std::string> savedRoots() const {
        std::vector<std::string> paths;
        for (const auto& root : store.savedFolderRoots()) {
            paths.push_back(root.path());
        }
        return paths;
    }
};

struct CreateWithFolderAccessTest : FolderAccessTest {
    CreateWithFolderAccessTest() { files.addFolder("/Users/u/Projects"); }
};

TEST_F(CreateWithFolderAccessTest, WritesInsideTheScopeOfTheSavedRoot) {
    grant("/Users/u");
    EXPECT_EQ(create("/Users/u/Projects/x/.."), "/Users/u/Projects/Untitled.txt");
    EXPECT_THAT(events, ElementsAre("start /Users/u", "cannot start /Users/u/Projects",
                                    "write /Users/u/Projects/Untitled.txt", "stop /Users/u"));
    EXPECT_THAT(openPanel.shown, IsEmpty());
}

TEST_F(CreateWithFolderAccessTest, AScopeThatDoesNotStartIsNotStopped) {
    grant("/Users/u");
    scopes.grants.clear();
    EXPECT_EQ(create("/Users/u/Projects"), "/Users/u/Projects/Untitled.txt");
    EXPECT_THAT(events, ElementsAre("cannot start /Users/u", "cannot start /Users/u/Projects",
                                    "write /Users/u/Projects/Untitled.txt"));
}

TEST_F(CreateWithFolderAccessTest, ClosesTheScopeWhenTheCreationFails) {
    grant("/Users/u");
    files.failWritingWith = SystemError{SystemError::Domain::cocoa, 640, "disk full"};
    EXPECT_EQ(create("/Users/u/Projects"), "disk full");
    EXPECT_EQ(events.back(), "stop /Users/u");
    EXPECT_TRUE(scopes.isBalanced());
}

TEST_F(CreateWithFolderAccessTest, OutsideOfASandboxNoBookmarkIsReadOrWritten) {
    environment.variables.clear();
    EXPECT_EQ(create("/Users/u/Projects"), "/Users/u/Projects/Untitled.txt");
    EXPECT_EQ(domains.group.reads, 0);
    EXPECT_THAT(domains.group.written, IsEmpty());
    EXPECT_THAT(openPanel.shown, IsEmpty());
}

TEST_F(CreateWithFolderAccessTest, TheSandboxVariableCountsWhateverItsValue) {
    environment.variables["APP_SANDBOX_CONTAINER_ID"] = "";
    EXPECT_EQ(create("/Users/u/Projects", AccessPrompt::forbidden),
              "Blankwell+ does not have saved access to Projects.");
}

TEST_F(CreateWithFolderAccessTest, WithoutARootAndPromptingNothingIsShownOrMade) {
    const auto result =
        access.createWithFolderAccess(FileUrl("/Users/u/Projects/"), AccessPrompt::forbidden,
                                      *FileTypeCatalog::definition("txt"));
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error(),
              CreationError(Error{Error::NoSavedAccess{FileUrl("/Users/u/Projects")}}));
    EXPECT_THAT(events, IsEmpty());
    EXPECT_THAT(files.files, IsEmpty());
}

TEST_F(CreateWithFolderAccessTest, AsksForTheFolderSavesItAndWrites) {
    openPanel.willChoose({FileUrl("/Users/u/x/../Projects/")});
    scopes.grants.insert(FileUrl("/Users/u/Projects"));
    EXPECT_EQ(create("/Users/u/Projects"), "/Users/u/Projects/Untitled.txt");
    EXPECT_THAT(events,
                ElementsAre("activate", "panel Allow Folder Access", "start /Users/u/Projects",
                            "start /Users/u/Projects", "write /Users/u/Projects/Untitled.txt",
                            "stop /Users/u/Projects", "stop /Users/u/Projects"));
    EXPECT_THAT(savedRoots(), ElementsAre("/Users/u/Projects"));
    EXPECT_EQ(openPanel.shown.at(0),
              (OpenPanelConfiguration{
                  .title = "Allow Folder Access",
                  .message = "Choose Projects so Blankwell+ can create files there.",
                  .prompt = "Allow Access",
                  .canChooseFiles = false,
                  .canChooseDirectories = true,
                  .canCreateDirectories = false,
                  .allowsMultipleSelection = false,
                  .resolvesAliases = true,
                  .directory = FileUrl("/Users/u"),
              }));
}

TEST_F(CreateWithFolderAccessTest, TheNextFileNeedsNoPanel) {
    openPanel.willChoose({FileUrl("/Users/u")});
    create("/Users/u/Projects");
    EXPECT_EQ(create("/Users/u/Projects"), "/Users/u/Projects/Untitled 2.txt");
    EXPECT_EQ(openPanel.shown.size(), 1U);
}

TEST_F(CreateWithFolderAccessTest, ACancelledPanelAbortsTheWrite) {
    openPanel.willCancel();
    EXPECT_EQ(create("/Users/u/Projects"),
              "Blankwell+ needs access to Projects before it can create files there.");
    EXPECT_THAT(files.files, IsEmpty());
    EXPECT_THAT(savedRoots(), IsEmpty());
}

TEST_F(CreateWithFolderAccessTest, NobodyToAskIsACancelledPanel) {
    openPanel.answers.push_back({.response = OpenPanelResult::Response::unavailable});
    EXPECT_EQ(create("/Users/u/Projects"),
              "Blankwell+ needs access to Projects before it can create files there.");
}

TEST_F(CreateWithFolderAccessTest, ASiblingIsTheWrongFolderAndIsNotSaved) {
    openPanel.willChoose({FileUrl("/Users/u/Other")});
    EXPECT_EQ(create("/Users/u/Projects"),
              "Please choose Projects (or a folder that contains it), not Other.");
    EXPECT_THAT(savedRoots(), IsEmpty());
    EXPECT_THAT(files.files, IsEmpty());
}

TEST_F(CreateWithFolderAccessTest, AFolderThatHoldsTheTargetWillDo) {
    openPanel.willChoose({FileUrl("/Users/u")});
    EXPECT_EQ(create("/Users/u/Projects"), "/Users/u/Projects/Untitled.txt");
    EXPECT_THAT(savedRoots(), ElementsAre("/Users/u"));
}

TEST_F(CreateWithFolderAccessTest, OffersTheProvidersFolderOfCloudStorage) {
    openPanel.willCancel();
    EXPECT_EQ(create("/Users/u/Library/CloudStorage/GoogleDrive-x/Sub"),
              "Blankwell+ needs access to GoogleDrive-x before it can create files there.");
    const auto& panel = openPanel.shown.at(0);
    EXPECT_EQ(panel.message, "Grant access to GoogleDrive-x so Blankwell+ can create files in it "
                             "and all its subfolders.");
    EXPECT_EQ(panel.directory, FileUrl("/Users/u/Library/CloudStorage"));
}

TEST_F(CreateWithFolderAccessTest, OffersCloudStorageItselfForItself) {
    openPanel.willCancel();
    create("/Users/u/Library/CloudStorage");
    EXPECT_EQ(openPanel.shown.at(0).message,
              "Choose CloudStorage so Blankwell+ can create files there.");
    EXPECT_EQ(openPanel.shown.at(0).directory, FileUrl("/Users/u/Library"));
}

TEST_F(CreateWithFolderAccessTest, OffersTheRootOfICloudDrive) {
    files.displayNames.emplace(FileUrl("/Users/u/Library/Mobile Documents/com~apple~CloudDocs"),
                               "iCloud Drive");
    openPanel.willCancel();
    create("/Users/u/Library/Mobile Documents/com~apple~CloudDocs/Notes");
    EXPECT_EQ(openPanel.shown.at(0).message,
              "Grant access to iCloud Drive so Blankwell+ can create files in it and all its "
              "subfolders.");
    EXPECT_EQ(openPanel.shown.at(0).directory, FileUrl("/Users/u/Library/Mobile Documents"));
}

TEST_F(CreateWithFolderAccessTest, ASubfolderOfTheSuggestionMayBeChosenIfItHoldsTheTarget) {
    files.addFolder("/Users/u/Dropbox/a/b");
    openPanel.willChoose({FileUrl("/Users/u/Dropbox/a")});
    EXPECT_EQ(create("/Users/u/Dropbox/a/b"), "/Users/u/Dropbox/a/b/Untitled.txt");
}

TEST_F(CreateWithFolderAccessTest, AWrongFolderIsToldFromTheOneThatWasAskedFor) {
    openPanel.willChoose({FileUrl("/Users/u/Dropbox/a/other")});
    EXPECT_EQ(create("/Users/u/Dropbox/a/b"),
              "Please choose Dropbox (or a folder that contains it), not other.");
    EXPECT_THAT(savedRoots(), IsEmpty());
}

TEST_F(CreateWithFolderAccessTest, WithoutAHomeTheTargetItselfIsAskedFor) {
    account.userRecord.reset();
    openPanel.willCancel();
    create("/Users/u/Dropbox/a");
    EXPECT_EQ(openPanel.shown.at(0).message, "Choose a so Blankwell+ can create files there.");
}

TEST(SuggestedRootTest, IsTheCloudRootThatHoldsTheTarget) {
    const FileUrl home("/Users/u");
    const auto suggestion = [&](const char* target) {
        const auto root = FolderAccess::suggestedRoot(FileUrl(target), home);
        return root ? root->path() : "(none)";
    };
    EXPECT_EQ(suggestion("/Users/u/Dropbox"), "/Users/u/Dropbox");
    EXPECT_EQ(suggestion("/Users/u/Dropbox/a/b"), "/Users/u/Dropbox");
    EXPECT_EQ(suggestion("/Users/u/Dropboxes"), "(none)");
    EXPECT_EQ(suggestion("/Users/u/Library/CloudStorage/OneDrive"),
              "/Users/u/Library/CloudStorage/OneDrive");
    EXPECT_EQ(suggestion("/Users/u/Library/CloudStorage/a/b/c"), "/Users/u/Library/CloudStorage/a");
    EXPECT_EQ(suggestion("/Users/u/Library/CloudStorage"), "(none)");
    EXPECT_EQ(suggestion("/Users/u/Library/CloudStorage/a/../b/c"),
              "/Users/u/Library/CloudStorage/b");
    EXPECT_EQ(suggestion("/Users/u/Projects"), "(none)");
    EXPECT_EQ(suggestion("/Users/other/Dropbox/a"), "(none)");
    EXPECT_EQ(FolderAccess::suggestedRoot(FileUrl("/Users/u/Dropbox"), std::nullopt), std::nullopt);
}

TEST_F(FolderAccessTest, ThePanelOpensInTheFolderThatHoldsTheSuggestion) {
    openPanel.willCancel();
    EXPECT_EQ(outcome(access.requestAccess(FileUrl("/a/b/../c/"), std::nullopt, "T", "M")),
              "Blankwell+ needs access to c before it can create files there.");
    EXPECT_EQ(openPanel.shown.at(0), FolderAccess::makeAccessPanel("T", "M", FileUrl("/a"), false));
}

TEST_F(FolderAccessTest, APanelConfirmedWithoutAFolderIsCancelled) {
    openPanel.willChoose({});
    EXPECT_EQ(outcome(access.requestAccess(FileUrl("/a"), std::nullopt, "T", std::nullopt)),
              "Blankwell+ needs access to a before it can create files there.");
}

TEST_F(FolderAccessTest, AFolderThatCannotBeSavedIsNotGranted) {
    openPanel.willChoose({FileUrl("/a")});
    bookmarks.failCreateWith = refused;
    EXPECT_EQ(outcome(access.requestAccess(FileUrl("/a"), std::nullopt, "T", std::nullopt)),
              "refused");
    EXPECT_THAT(savedRoots(), IsEmpty());
}

TEST_F(FolderAccessTest, AsksForTheHomeFolder) {
    openPanel.willChoose({FileUrl("/Users/u")});
    EXPECT_EQ(outcome(access.grantHomeFolder()), "/Users/u");
    EXPECT_EQ(openPanel.shown.at(0),
              FolderAccess::makeAccessPanel(
                  "Allow Home Folder Access",
                  "Choose your home folder so Blankwell+ can create files in folders you own.",
                  FileUrl("/Users"), false));
    EXPECT_THAT(events, ElementsAre("activate", "panel Allow Home Folder Access"));
    EXPECT_THAT(savedRoots(), ElementsAre("/Users/u"));
}

TEST_F(FolderAccessTest, TheRootOfTheDiskIsNotTheHomeFolder) {
    openPanel.willChoose({FileUrl("/")});
    EXPECT_EQ(outcome(access.grantHomeFolder()),
              "Please choose u (or a folder that contains it), not /.");
    EXPECT_THAT(savedRoots(), IsEmpty());
}

TEST_F(FolderAccessTest, AnUnknownHomeCannotBeGranted) {
    account.userRecord.reset();
    EXPECT_EQ(outcome(access.grantHomeFolder()), "Blankwell+ could not locate your home folder.");
    EXPECT_EQ(outcome(access.grantCloudFolders()),
              std::vector<std::string>{"Blankwell+ could not locate your home folder."});
    EXPECT_THAT(openPanel.shown, IsEmpty());
}

struct GrantCloudFoldersTest : FolderAccessTest {
    GrantCloudFoldersTest() {
        for (const auto* folder : {dropbox, providers, iCloud}) {
            files.addFolder(folder);
        }
    }

    static constexpr auto dropbox = "/Users/u/Dropbox";
    static constexpr auto providers = "/Users/u/Library/CloudStorage";
    static constexpr auto iCloud = "/Users/u/Library/Mobile Documents/com~apple~CloudDocs";
};

TEST_F(GrantCloudFoldersTest, AsksForEachKindInItsOrder) {
    files.displayNames.emplace(FileUrl(iCloud), "iCloud Drive");
    openPanel.willChoose({});
    openPanel.willChoose({FileUrl("/c/./one/"), FileUrl("/c/two")});
    openPanel.willChoose({FileUrl("/c/../elsewhere")});
    EXPECT_THAT(outcome(access.grantCloudFolders()),
                ElementsAre(dropbox, "/c/one", "/c/two", "/elsewhere"));
    EXPECT_THAT(savedRoots(), ElementsAre("/c/one", "/c/two", "/elsewhere", dropbox));
    EXPECT_THAT(
        openPanel.shown,
        ElementsAre(FolderAccess::makeAccessPanel("Allow Dropbox Access",
                                                  "Click Allow Access to let Blankwell+ create "
                                                  "files in Dropbox and its subfolders.",
                                                  FileUrl(dropbox), false),
                    FolderAccess::makeAccessPanel("Add Cloud Folder Access",
                                                  "Choose Google Drive, OneDrive, or other "
                                                  "provider folders that Blankwell+ can use.",
                                                  FileUrl(providers), true),
                    FolderAccess::makeAccessPanel(
                        "Allow iCloud Drive Access",
                        "Click Allow Access to let Blankwell+ create files in iCloud Drive and its "
                        "subfolders.",
                        FileUrl(iCloud), false)));
    EXPECT_THAT(events, ElementsAre("activate", "panel Allow Dropbox Access", "activate",
                                    "panel Add Cloud Folder Access", "activate",
                                    "panel Allow iCloud Drive Access"));
}

TEST_F(GrantCloudFoldersTest, ARefusedFolderDoesNotEndTheFlow) {
    openPanel.willCancel();
    openPanel.willCancel();
    openPanel.willChoose({FileUrl(iCloud)});
    EXPECT_THAT(outcome(access.grantCloudFolders()), ElementsAre(iCloud));
}

TEST_F(GrantCloudFoldersTest, AllRefusedIsCancelled) {
    EXPECT_THAT(outcome(access.grantCloudFolders()),
                ElementsAre("Blankwell+ needs access to u before it can create files there."));
    EXPECT_EQ(openPanel.shown.size(), 3U);
}

TEST_F(GrantCloudFoldersTest, WithoutAnyCloudFolderFailsAtOnce) {
    files.folders.clear();
    EXPECT_THAT(outcome(access.grantCloudFolders()),
                ElementsAre("Blankwell+ needs access to u before it can create files there."));
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(GrantCloudFoldersTest, OnlyFoldersThatExistAreAskedFor) {
    files.folders.clear();
    files.addFile(dropbox);
    files.addFile(providers);
    files.addFolder(iCloud);
    openPanel.willChoose({FileUrl(iCloud)});
    EXPECT_THAT(outcome(access.grantCloudFolders()), ElementsAre(iCloud));
    EXPECT_EQ(openPanel.shown.size(), 1U);
}

TEST_F(GrantCloudFoldersTest, AProviderThatCannotBeSavedEndsTheFlowAndKeepsTheOthers) {
    openPanel.willChoose({FileUrl(dropbox)});
    openPanel.willChoose({FileUrl("/c/one"), FileUrl("/c/two")});
    bookmarks.failFor.insert("/c/two");
    EXPECT_THAT(outcome(access.grantCloudFolders()), ElementsAre("no bookmark of /c/two"));
    EXPECT_THAT(savedRoots(), ElementsAre("/c/one", dropbox));
    EXPECT_EQ(openPanel.shown.size(), 2U);
}

TEST_F(GrantCloudFoldersTest, ASingleFolderThatCannotBeSavedIsPassedOver) {
    openPanel.willChoose({FileUrl(dropbox)});
    openPanel.willCancel();
    openPanel.willChoose({FileUrl(iCloud)});
    bookmarks.failFor.insert(dropbox);
    EXPECT_THAT(outcome(access.grantCloudFolders()), ElementsAre(iCloud));
}

TEST_F(FolderAccessTest, AsksForExternalVolumesWithoutComingToTheFront) {
    openPanel.willChoose({FileUrl("/Volumes/usb/"), FileUrl("/Volumes/disk")});
    EXPECT_THAT(outcome(access.grantExternalVolumes()),
                ElementsAre("/Volumes/usb", "/Volumes/disk"));
    EXPECT_EQ(openPanel.shown.at(0),
              FolderAccess::makeAccessPanel("Add External Volume Access",
                                            "Choose external volumes that Blankwell+ can use.",
                                            FileUrl("/Volumes"), true));
    EXPECT_THAT(events, ElementsAre("panel Add External Volume Access"));
    EXPECT_THAT(savedRoots(), ElementsAre("/Volumes/disk", "/Volumes/usb"));
}

TEST_F(FolderAccessTest, LooksForVolumesWhereTheDesktopPutsThem) {
    folders.volumeFolders = {FileUrl("/media/u"), FileUrl("/Volumes")};
    EXPECT_THAT(
        outcome(access.grantExternalVolumes()),
        ElementsAre("Blankwell+ needs access to Volumes before it can create files there."));
    EXPECT_EQ(openPanel.shown.at(0).directory, FileUrl("/media/u"));
}

TEST_F(FolderAccessTest, NoVolumesChosenIsAnEmptyList) {
    openPanel.willChoose({});
    EXPECT_THAT(outcome(access.grantExternalVolumes()), IsEmpty());
}

TEST_F(FolderAccessTest, AsksForOtherFoldersInTheHome) {
    openPanel.willChoose({FileUrl("/x")});
    EXPECT_THAT(outcome(access.grantOtherFolders()), ElementsAre("/x"));
    EXPECT_EQ(openPanel.shown.at(0),
              FolderAccess::makeAccessPanel(
                  "Add Other Folders", "Choose any other folders Blankwell+ can create files in.",
                  FileUrl("/Users/u"), true));
    EXPECT_THAT(events, ElementsAre("panel Add Other Folders"));
}

TEST_F(FolderAccessTest, OtherFoldersNotChosenAreAskedForByTheHome) {
    EXPECT_THAT(outcome(access.grantOtherFolders()),
                ElementsAre("Blankwell+ needs access to u before it can create files there."));
    EXPECT_THAT(savedRoots(), IsEmpty());
}

TEST_F(FolderAccessTest, OtherFoldersWithoutAHomeAreAskedForAnywhere) {
    account.userRecord.reset();
    EXPECT_THAT(
        outcome(access.grantOtherFolders()),
        ElementsAre("Blankwell+ needs access to container before it can create files there."));
    EXPECT_EQ(openPanel.shown.at(0).directory, std::nullopt);
}

TEST_F(FolderAccessTest, AFailureAmongSeveralFoldersIsTheFirst) {
    openPanel.willChoose({FileUrl("/a"), FileUrl("/b"), FileUrl("/c")});
    bookmarks.failFor.insert("/b");
    EXPECT_THAT(outcome(access.grantOtherFolders()), ElementsAre("no bookmark of /b"));
    EXPECT_THAT(savedRoots(), ElementsAre("/a"));
}

TEST(SecurityScopedFolderAccessErrorTest, EachCaseHasItsText) {
    EXPECT_EQ((Error{Error::AccessCancelled{FileUrl("/a/Docs")}}.description()),
              "Blankwell+ needs access to Docs before it can create files there.");
    EXPECT_EQ((Error{Error::WrongFolder{FileUrl("/a/Docs"), FileUrl("/b")}}.description()),
              "Please choose Docs (or a folder that contains it), not b.");
    EXPECT_EQ((Error{Error::BookmarkResolutionFailed{refused}}.description()), "refused");
    EXPECT_EQ((Error{Error::NoSavedAccess{FileUrl("/a/Docs")}}.description()),
              "Blankwell+ does not have saved access to Docs.");
    EXPECT_EQ(Error{Error::HomeFolderUnavailable{}}.description(),
              "Blankwell+ could not locate your home folder.");
}

} // namespace
} // namespace blankwell
