#include "platform/linux/BundleDirectory.h"

#include "contract/BundleContract.h"
#include "platform/Identifiers.h"
#include "support/FakeBundle.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

using namespace std::string_view_literals;

std::string propertyList(std::string_view entries) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>" +
           std::string(entries) + "</dict>\n</plist>\n";
}

struct FakeBundleSubject {
    FakeBundleSubject() {
        fake.resources.emplace("blank.docx", "/bundle/blank.docx");
        fake.info = {{"CFBundleName", "Blankwell+"}, {"Empty", ""}};
    }

    const Bundle& bundle() { return fake; }

    FakeBundle fake;
};

struct BundleDirectorySubject {
    BundleDirectorySubject() {
        folder.addFile("Contents/Resources/blank.docx");
        folder.addFile("Contents/Info.plist",
                       propertyList("<key>CFBundleName</key><string>Blankwell+</string>"
                                    "<key>Empty</key><string></string>"));
    }

    const Bundle& bundle() { return directory; }

    TemporaryFolder folder;
    BundleDirectory directory{folder.url().appending("Contents/Linux")};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, BundleContract, FakeBundleSubject);
INSTANTIATE_TYPED_TEST_SUITE_P(Directory, BundleContract, BundleDirectorySubject);

struct BundleDirectoryTest : testing::Test {
    void writeInfo(std::string_view contents) { folder.addFile("Info.plist", contents); }

    TemporaryFolder folder;
    BundleDirectory bundle{folder.url().appending("bin")};
};

TEST_F(BundleDirectoryTest, TheBundleHoldsTheContentsThatHoldThePrograms) {
    const FileUrl bundleUrl("/Applications/Blankwell+.app");
    EXPECT_EQ(BundleDirectory(bundleUrl.appending("Contents").appending("Linux")).url(), bundleUrl);
}

TEST_F(BundleDirectoryTest, AProgramOutsideOfABundleStandsForItsFolder) {
    for (const auto* const path : {"/usr/bin", "/x/Blankwell+.app/Linux", "/x/Contents/bin"}) {
        EXPECT_EQ(BundleDirectory(FileUrl(path)).url(), FileUrl(path));
    }
}

TEST_F(BundleDirectoryTest, AResourceIsAFileBesideTheProgramsFolder) {
    const auto file = folder.addFile("Resources/blank.docx");
    EXPECT_EQ(bundle.resource("blank", "docx"), file);
}

TEST_F(BundleDirectoryTest, WhatIsNotAFileIsNoResource) {
    folder.addFolder("Resources/blank.docx");
    EXPECT_EQ(bundle.resource("blank", "docx"), std::nullopt);
}

TEST_F(BundleDirectoryTest, NamesDoNotLeadOutOfTheResources) {
    folder.addFile("outside.docx");
    folder.addFile("Resources/templates/blank.docx");
    folder.addFile("Resources/blank.docx");
    EXPECT_EQ(bundle.resource("../outside", "docx"), std::nullopt);
    EXPECT_EQ(bundle.resource("templates/blank", "docx"), std::nullopt);
    EXPECT_EQ(bundle.resource(".", "/../outside.docx"), std::nullopt);
    EXPECT_EQ(bundle.resource("blank", "docx\0x"sv), std::nullopt);
}

TEST_F(BundleDirectoryTest, AnEntryThatIsNoStringIsAbsent) {
    writeInfo(
        propertyList("<key>A</key><true/><key>B</key><data>AA==</data>"
                     "<key>C</key><array><string>c</string></array>"
                     "<key>D</key><string>d &amp; é</string><key>E</key><integer>1</integer>"));
    for (const auto* const key : {"A", "B", "C", "E"}) {
        EXPECT_EQ(bundle.infoString(key), std::nullopt) << key;
    }
    EXPECT_EQ(bundle.infoString("D"), "d & é");
}

TEST_F(BundleDirectoryTest, AnInfoPropertyListThatIsMissingOrDamagedHasNoEntries) {
    EXPECT_EQ(bundle.infoString("A"), std::nullopt);
    for (const auto contents :
         {""sv, "\0\xFF\xFE"sv, "<plist><dict><key>A</key><string>a"sv, "bplist00\x01"sv,
          "<plist><array><string>A</string></array></plist>"sv,
          "<plist version=\"1.0\"><dict><key>A</key></dict></plist>"sv}) {
        writeInfo(contents);
        EXPECT_EQ(BundleDirectory(folder.url().appending("bin")).infoString("A"), std::nullopt)
            << contents;
    }
}

TEST_F(BundleDirectoryTest, AFolderIsNoInfoPropertyList) {
    folder.addFolder("Info.plist");
    EXPECT_EQ(bundle.infoString("A"), std::nullopt);
}

TEST_F(BundleDirectoryTest, TheInfoPropertyListIsReadOnceAndNotBeforeItIsNeeded) {
    writeInfo(propertyList("<key>A</key><string>first</string>"));
    EXPECT_EQ(bundle.infoString("A"), "first");
    writeInfo(propertyList("<key>A</key><string>second</string>"));
    EXPECT_EQ(bundle.infoString("A"), "first");
}

TEST(RunningProgramTest, TheBuildTreeHasTheShapeOfTheBundle) {
    const auto folder = BundleDirectory::folderOfRunningProgram();
    ASSERT_TRUE(folder);
    EXPECT_EQ(folder->path(), BLANKWELL_PROGRAM_FOLDER);
    const BundleDirectory bundle(*folder);
    EXPECT_EQ(bundle.infoString("CFBundleIdentifier"), bundleIdentifier);
    EXPECT_EQ(bundle.infoString("CFBundleName"), "Blankwell+");
    EXPECT_EQ(bundle.infoString("CFBundleShortVersionString"), BLANKWELL_VERSION);
}

/// The two property lists that the build has written from the template for this test.
TEST(InfoPropertyListTest, HasNoUpdateEntriesUnlessTheyAreConfigured) {
    const BundleDirectory bundle(FileUrl(BLANKWELL_INFO_SAMPLES "/plain/bin"));
    EXPECT_EQ(bundle.infoString("CFBundleVersion"), "1");
    EXPECT_EQ(bundle.infoString("SUFeedURL"), std::nullopt);
    EXPECT_EQ(bundle.infoString("SUPublicEDKey"), std::nullopt);
}

TEST(InfoPropertyListTest, HoldsConfiguredValuesUnchanged) {
    const BundleDirectory bundle(FileUrl(BLANKWELL_INFO_SAMPLES "/updating/bin"));
    EXPECT_EQ(bundle.infoString("CFBundleVersion"), "42");
    EXPECT_EQ(bundle.infoString("SUFeedURL"), "https://example.org/feed?a=1&b=<2>;c");
    EXPECT_EQ(bundle.infoString("SUPublicEDKey"), "a+/=");
}

} // namespace
} // namespace blankwell
