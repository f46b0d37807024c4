#include "filetypes/FileCreator.h"

#include "filetypes/FileTypeCatalog.h"
#include "support/FakeAccessScopes.h"
#include "support/FakeBundle.h"
#include "support/FakeFileCoordinator.h"
#include "support/FakeFileSystem.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using testing::ElementsAre;

const SystemError diskFull{SystemError::Domain::cocoa, 640, "The disk is full."};

struct FileCreatorTest : testing::Test {
    FileCreatorTest() { files.addFolder("/f"); }

    /// The path of the new file, or the error's description.
    std::string create(std::string_view typeID) {
        const auto result = creator.createFile(*FileTypeCatalog::definition(typeID), FileUrl("/f"));
        return result ? result->path() : result.error().description();
    }

    EventLog events;
    FakeFileSystem files{events};
    FakeFileCoordinator coordinator;
    FakeBundle bundle;
    FakeAccessScopes scopes{events};
    FileCreator creator{files, coordinator, bundle, scopes};
};

TEST_F(FileCreatorTest, ATextFileStartsEmpty) {
    EXPECT_EQ(create("txt"), "/f/Untitled.txt");
    EXPECT_EQ(files.contents("/f/Untitled.txt"), "");
}

TEST_F(FileCreatorTest, TakesTheFirstFreeName) {
    files.addFile("/f/Untitled.txt");
    files.addFile("/f/Untitled 3.txt");
    EXPECT_EQ(create("txt"), "/f/Untitled 2.txt");
    EXPECT_EQ(create("txt"), "/f/Untitled 4.txt");
}

TEST_F(FileCreatorTest, AFolderOfThatNameCountsAsTaken) {
    files.addFolder("/f/Untitled.json");
    EXPECT_EQ(create("json"), "/f/Untitled 2.json");
}

TEST_F(FileCreatorTest, EachTypeStartsWithItsTemplate) {
    const std::map<std::string, std::string> contents{
        {"rtf", "{\\rtf1\\ansi\\deff0\n}\n"},
        {"json", "{}\n"},
        {"xml", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<root>\n</root>\n"},
        {"html", "<!doctype html>\n<html lang=\"en\">\n<head>\n  <meta charset=\"utf-8\">\n"
                 "  <title>Untitled</title>\n</head>\n<body>\n</body>\n</html>\n"},
    };
    const std::map<std::string, std::size_t> lengths{
        {"rtf", 20}, {"json", 3}, {"xml", 54}, {"html", 122}};
    for (const auto& type : FileTypeCatalog::builtInTypes()) {
        if (type.category == FileTypeCategory::office) {
            continue;
        }
        const auto path = create(type.id);
        const auto expected = contents.find(type.id);
        EXPECT_EQ(files.contents(path), expected == contents.end() ? "" : expected->second);
        EXPECT_EQ(files.contents(path).size(), lengths.contains(type.id) ? lengths.at(type.id) : 0)
            << type.id;
    }
}

TEST_F(FileCreatorTest, TheIdChoosesTheTemplateAndTheExtensionTheName) {
    const FileTypeDefinition page{"html", "Page", "htm", FileTypeCategory::code, "globe"};
    const FileTypeDefinition other{"page", "Page", "html", FileTypeCategory::code, "globe"};
    EXPECT_EQ(creator.createFile(page, FileUrl("/f")), FileUrl("/f/Untitled.htm"));
    EXPECT_EQ(creator.createFile(other, FileUrl("/f")), FileUrl("/f/Untitled.html"));
    EXPECT_EQ(files.contents("/f/Untitled.htm").size(), 122U);
    EXPECT_EQ(files.contents("/f/Untitled.html"), "");
}

TEST_F(FileCreatorTest, ANumberedPageKeepsItsTitle) {
    files.addFile("/f/Untitled.html");
    EXPECT_THAT(files.contents(create("html")), testing::HasSubstr("<title>Untitled</title>"));
}

TEST_F(FileCreatorTest, AnOfficeDocumentIsACopyOfItsTemplate) {
    files.addFile("/app/blank.docx", "a document");
    bundle.resources.emplace("blank.docx", FileUrl("/app/blank.docx"));
    EXPECT_EQ(create("docx"), "/f/Untitled.docx");
    EXPECT_EQ(files.contents("/f/Untitled.docx"), "a document");
}

TEST_F(FileCreatorTest, AMissingTemplateIsNamedAndNothingIsMade) {
    EXPECT_EQ(create("docx"), "Could not find bundled template \"blank.docx\".");
    EXPECT_EQ(create("pptx"), "Could not find bundled template \"blank.pptx\".");
    EXPECT_TRUE(files.files.empty());
}

TEST_F(FileCreatorTest, AFileCreatedInBetweenStaysIntact) {
    files.beforeWriting = [this] { files.addFile("/f/Untitled.txt", "somebody else's"); };
    EXPECT_EQ(create("txt"), "file exists");
    EXPECT_EQ(files.contents("/f/Untitled.txt"), "somebody else's");
    EXPECT_EQ(files.files.size(), 1U);
}

TEST_F(FileCreatorTest, ADocumentCreatedInBetweenStaysIntact) {
    files.addFile("/app/blank.docx", "a document");
    bundle.resources.emplace("blank.docx", FileUrl("/app/blank.docx"));
    files.beforeWriting = [this] { files.addFile("/f/Untitled.docx", "somebody else's"); };
    EXPECT_EQ(create("docx"), "file exists");
    EXPECT_EQ(files.contents("/f/Untitled.docx"), "somebody else's");
}

TEST_F(FileCreatorTest, AFailedWriteCarriesTheSystemsOwnText) {
    files.failWritingWith = diskFull;
    const auto result = creator.createFile(*FileTypeCatalog::definition("txt"), FileUrl("/f"));
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().reason,
              decltype(result.error().reason)(FileCreationError::WriteFailed{diskFull}));
    EXPECT_EQ(result.error().description(), "The disk is full.");
}

TEST_F(FileCreatorTest, AnUnclearExistenceTestIsAFailedWrite) {
    files.failExistenceWith = SystemError{SystemError::Domain::posix, 20, "not a directory"};
    EXPECT_EQ(create("txt"), "not a directory");
    EXPECT_TRUE(files.files.empty());
}

TEST_F(FileCreatorTest, WritesToThePlaceThatTheCoordinatorHandsOut) {
    files.addFolder("/elsewhere");
    coordinator.handsOut = FileUrl("/elsewhere/moved.json");
    EXPECT_EQ(create("json"), "/f/Untitled.json");
    EXPECT_EQ(files.contents("/elsewhere/moved.json"), "{}\n");
}

TEST_F(FileCreatorTest, CopiesToThePlaceThatTheCoordinatorHandsOut) {
    files.addFolder("/elsewhere");
    files.addFile("/app/blank.docx", "a document");
    bundle.resources.emplace("blank.docx", FileUrl("/app/blank.docx"));
    coordinator.handsOut = FileUrl("/elsewhere/moved.docx");
    EXPECT_EQ(create("docx"), "/f/Untitled.docx");
    EXPECT_EQ(files.contents("/elsewhere/moved.docx"), "a document");
    EXPECT_EQ(files.contents("/f/Untitled.docx"), "(none)");
}

TEST_F(FileCreatorTest, ACoordinatorsErrorCountsBeforeAllElse) {
    coordinator.failWith = SystemError{SystemError::Domain::cocoa, 512, "not coordinated"};
    files.failWritingWith = diskFull;
    EXPECT_EQ(create("txt"), "not coordinated");
    coordinator.callsAccessor = false;
    EXPECT_EQ(create("txt"), "not coordinated");
}

TEST_F(FileCreatorTest, AnAccessorThatNeverRanIsAnUnknownWriteFailure) {
    coordinator.callsAccessor = false;
    const auto result = creator.createFile(*FileTypeCatalog::definition("txt"), FileUrl("/f"));
    ASSERT_FALSE(result);
    const auto* const failure = std::get_if<FileCreationError::WriteFailed>(&result.error().reason);
    ASSERT_NE(failure, nullptr);
    EXPECT_TRUE(failure->underlying.is(CocoaCode::fileWriteUnknown));
    EXPECT_FALSE(failure->underlying.description.empty());
    EXPECT_TRUE(files.files.empty());
}

TEST_F(FileCreatorTest, WritesInsideAnAccessToTheFolder) {
    scopes.grants.insert(FileUrl("/f"));
    create("txt");
    EXPECT_THAT(events, ElementsAre("start /f", "write /f/Untitled.txt", "stop /f"));
}

TEST_F(FileCreatorTest, StopsTheAccessOnEveryFailure) {
    scopes.grants.insert(FileUrl("/f"));
    create("docx");
    EXPECT_THAT(events, ElementsAre("start /f", "stop /f"));
    files.failWritingWith = diskFull;
    create("txt");
    EXPECT_TRUE(scopes.isBalanced());
}

TEST_F(FileCreatorTest, AnAccessThatDidNotStartIsNotStopped) {
    EXPECT_EQ(create("txt"), "/f/Untitled.txt");
    EXPECT_THAT(events, ElementsAre("cannot start /f", "write /f/Untitled.txt"));
}

TEST(FileCreationErrorTest, AnInvalidNameIsToldInItsOwnWords) {
    EXPECT_EQ(FileCreationError{FileCreationError::InvalidFileName{}}.description(),
              "Please enter a valid file name.");
}

TEST(FileCreationErrorTest, TheCasesStandInTheirOrder) {
    EXPECT_EQ(FileCreationError{FileCreationError::TemplateMissing{}}.reason.index(), 0U);
    EXPECT_EQ(FileCreationError{FileCreationError::WriteFailed{diskFull}}.reason.index(), 1U);
    EXPECT_EQ(FileCreationError{FileCreationError::InvalidFileName{}}.reason.index(), 2U);
}

} // namespace
} // namespace blankwell
