#include "filetypes/CreationDestination.h"

#include "support/FakeSurroundings.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

using enum CreationDestinationMode;

struct CreationDestinationTest : testing::Test {
    FakeAccount account;
    FakeWellKnownFolders folders;
    FakeFrontFolder frontFolder;
    CreationDestination destination{account, folders, frontFolder};
};

TEST_F(CreationDestinationTest, TheDesktopIsInTheHomeOfTheAccountRecord) {
    const auto resolved = destination.resolve(desktop);
    EXPECT_EQ(resolved, (ResolvedCreationDestination{desktop, FileUrl("/Users/u/Desktop"), false}));
    EXPECT_EQ(resolved.destinationName(), "Desktop");
}

TEST_F(CreationDestinationTest, TheDesktopOfAUserWithoutARecordIsInTheProcessesHome) {
    account.userRecord.reset();
    EXPECT_EQ(destination.desktopFolderURL(), FileUrl("/container/Desktop"));
}

TEST_F(CreationDestinationTest, TheDesktopIsStandardized) {
    account.userRecord = AccountRecord{FileUrl("/Users//x/../u/")};
    EXPECT_EQ(destination.desktopFolderURL(), FileUrl("/Users/u/Desktop"));
}

TEST_F(CreationDestinationTest, ADesktopOfAnotherNameIsStillCalledDesktop) {
    folders.desktopName = "Schreibtisch";
    const auto resolved = destination.resolve(desktop);
    EXPECT_EQ(resolved.url, FileUrl("/Users/u/Schreibtisch"));
    EXPECT_EQ(resolved.destinationName(), "Desktop");
    EXPECT_EQ(destination.resolve(frontFinderFolder).destinationName(), "Desktop");
}

TEST_F(CreationDestinationTest, ResolvingTheDesktopAsksNoFileManager) {
    (void)destination.resolve(desktop);
    EXPECT_EQ(frontFolder.asked, 0);
}

TEST_F(CreationDestinationTest, TheFrontFolderIsNamedByItsLastComponent) {
    frontFolder.answer = "/Users/u/Projects/";
    const auto resolved = destination.resolve(frontFinderFolder);
    EXPECT_EQ(resolved, (ResolvedCreationDestination{frontFinderFolder,
                                                     FileUrl("/Users/u/Projects"), false}));
    EXPECT_EQ(resolved.destinationName(), "Projects");
}

TEST_F(CreationDestinationTest, TheFrontFolderIsAskedForEachTime) {
    frontFolder.answer = "/a";
    EXPECT_EQ(destination.resolve(frontFinderFolder).url, FileUrl("/a"));
    frontFolder.answer = "/b";
    EXPECT_EQ(destination.resolve(frontFinderFolder).url, FileUrl("/b"));
    EXPECT_EQ(frontFolder.asked, 2);
}

TEST_F(CreationDestinationTest, TheRootOfTheDiskIsNamedByItsSlash) {
    frontFolder.answer = "/";
    EXPECT_EQ(destination.resolve(frontFinderFolder).destinationName(), "/");
}

TEST_F(CreationDestinationTest, WithoutAFrontFolderTheDesktopIsTheFallback) {
    for (const std::optional<std::string>& none :
         {std::optional<std::string>(), std::optional<std::string>(""),
          std::optional<std::string>(" \n")}) {
        frontFolder.answer = none;
        const auto resolved = destination.resolve(frontFinderFolder);
        EXPECT_EQ(resolved, (ResolvedCreationDestination{frontFinderFolder,
                                                         FileUrl("/Users/u/Desktop"), true}));
        EXPECT_EQ(resolved.destinationName(), "Desktop");
    }
}

TEST_F(CreationDestinationTest, TheFrontFoldersPathIsTakenAsItWasReturned) {
    frontFolder.answer = "/Users/u/ends in blanks  ";
    EXPECT_EQ(destination.frontFinderFolderURL(), FileUrl("/Users/u/ends in blanks  "));
}

TEST_F(CreationDestinationTest, TheFrontFolderIsStandardized) {
    frontFolder.answer = "/Users/u//x/../Projects/.";
    EXPECT_EQ(destination.resolve(frontFinderFolder).url.path(), "/Users/u/Projects");
}

TEST(CreationDestinationModeTest, StandsInItsOrderWithItsRawValuesAndTitles) {
    EXPECT_EQ(allCreationDestinationModes[0], desktop);
    EXPECT_EQ(allCreationDestinationModes[1], frontFinderFolder);
    EXPECT_EQ(allCreationDestinationModes.size(), 2U);
    EXPECT_EQ(rawValue(desktop), "desktop");
    EXPECT_EQ(rawValue(frontFinderFolder), "frontFinderFolder");
    EXPECT_EQ(title(desktop), "Desktop");
    EXPECT_EQ(title(frontFinderFolder), "Front Finder folder");
}

TEST(CreationDestinationModeTest, DecodesOnlyItsExactRawValues) {
    EXPECT_EQ(creationDestinationMode("desktop"), desktop);
    EXPECT_EQ(creationDestinationMode("frontFinderFolder"), frontFinderFolder);
    EXPECT_EQ(creationDestinationMode("Desktop"), std::nullopt);
    EXPECT_EQ(creationDestinationMode(""), std::nullopt);
}

TEST(FrontFinderFolderScriptTest, IsFiveLinesWithoutALineFeedAtTheEnd) {
    EXPECT_EQ(frontFinderFolderScript(),
              "tell application \"Finder\"\n"
              "    if (count of Finder windows) is 0 then return \"\"\n"
              "    set folderAlias to target of front Finder window as alias\n"
              "    return POSIX path of folderAlias\n"
              "end tell");
}

} // namespace
} // namespace blankwell
