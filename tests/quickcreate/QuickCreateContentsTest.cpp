#include "quickcreate/QuickCreateContents.h"

#include "filetypes/FileTypeCatalog.h"
#include "support/FakeCreationController.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct QuickCreateContentsTest : testing::Test, FakeCreationController {
    /// Each section as its title and the ids of its types.
    std::vector<std::string> shown() {
        std::vector<std::string> lines;
        for (const auto& section : quickCreateSections(controller)) {
            auto line = std::string(section.title) + ":";
            for (const auto& type : section.types) {
                line += " " + type.id;
            }
            lines.push_back(line);
        }
        return lines;
    }

    void search(std::string text) { controller.searchText.set(std::move(text)); }

    void choose(CreationDestinationMode mode) { controller.destinationMode.set(mode); }

    QuickCreateFooter footer() { return quickCreateFooter(controller); }
};

TEST_F(QuickCreateContentsTest, AllTypesStandInTheirCategoriesInTheOrderOfCategories) {
    EXPECT_THAT(shown(), ElementsAre("Plain Text: txt md rtf csv",
                                     "Code: json yaml xml html css js sh py swift",
                                     "Office: docx xlsx pptx"));
}

TEST_F(QuickCreateContentsTest, ASearchThatMatchesNothingLeavesNoSection) {
    search("no such type");
    EXPECT_THAT(shown(), IsEmpty());
    EXPECT_EQ(firstType(quickCreateSections(controller)), std::nullopt);
}

TEST_F(QuickCreateContentsTest, ASearchForOneTypeLeavesItsSectionAlone) {
    search("Word Document");
    EXPECT_THAT(shown(), ElementsAre("Office: docx"));
}

TEST_F(QuickCreateContentsTest, WithEveryTypeOffThereIsNoSection) {
    settings.enabledFileTypeIDs.set({});
    EXPECT_THAT(shown(), IsEmpty());
}

TEST_F(QuickCreateContentsTest, TypesKeepTheUsersOrderInsideTheirSection) {
    auto reversed = FileTypeCatalog::defaultOrder();
    std::ranges::reverse(reversed);
    settings.fileTypeOrder.set(reversed);
    EXPECT_THAT(shown(), ElementsAre("Plain Text: csv rtf md txt",
                                     "Code: swift py sh js css html xml yaml json",
                                     "Office: pptx xlsx docx"));
}

TEST_F(QuickCreateContentsTest, TheFirstTypeIsTheFirstOfTheFirstSectionShown) {
    EXPECT_EQ(firstType(quickCreateSections(controller))->id, "txt");
    search("script");
    EXPECT_EQ(firstType(quickCreateSections(controller))->id, "js");
}

TEST_F(QuickCreateContentsTest, TheFooterTellsTheDestinationUntilSomethingWasCreated) {
    const QuickCreateFooter desktop{
        .symbol = "desktopcomputer", .firstLine = "Desktop", .secondLine = "/Users/u/Desktop"};
    EXPECT_EQ(footer(), desktop);
    choose(CreationDestinationMode::frontFinderFolder);
    EXPECT_EQ(footer(), (QuickCreateFooter{.symbol = "folder",
                                           .firstLine = "Finder Folder",
                                           .secondLine = "Front Finder folder"}));
    choose(CreationDestinationMode::desktop);
    EXPECT_EQ(footer(), desktop);
}

TEST_F(QuickCreateContentsTest, TheLastSuccessStaysWhateverThePickerShows) {
    controller.create(*FileTypeCatalog::definition("md"), DestinationChoice::panel);
    EXPECT_EQ(footer().firstLine, "Created Untitled.md in Desktop");
    choose(CreationDestinationMode::frontFinderFolder);
    EXPECT_EQ(footer(), (QuickCreateFooter{.symbol = "folder",
                                           .firstLine = "Created Untitled.md in Desktop",
                                           .secondLine = "Front Finder folder"}));
}

TEST_F(QuickCreateContentsTest, TheFooterAsksNoFileManager) {
    choose(CreationDestinationMode::frontFinderFolder);
    (void)footer();
    EXPECT_EQ(frontFolder.asked, 0);
}

TEST_F(QuickCreateContentsTest, ScreenReadersHearNameAndExtensionOfATile) {
    EXPECT_EQ(tileName(*FileTypeCatalog::definition("md")), "Markdown, .md");
}

} // namespace
} // namespace blankwell
