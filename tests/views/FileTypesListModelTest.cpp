#include "views/FileTypesListModel.h"

#include "filetypes/FileTypeCatalog.h"
#include "settings/AppSettings.h"
#include "support/FakeLog.h"
#include "support/FakeUserDefaults.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace blankwell {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using enum FileTypesListModel::Place;
using enum FileTypesListModel::Direction;
using Ids = std::vector<std::string>;

struct FileTypesListModelTest : testing::Test {
    /// The ids of the section with this index.
    Ids section(std::size_t index) const {
        Ids ids;
        const auto sections = list.sections();
        for (const auto& row : sections.at(index).rows) {
            ids.push_back(row.type.id);
        }
        return ids;
    }

    bool isOn(const std::string& id) const {
        for (const auto& section : list.sections()) {
            for (const auto& row : section.rows) {
                if (row.type.id == id) {
                    return row.isEnabled;
                }
            }
        }
        ADD_FAILURE() << id << " is in no section";
        return false;
    }

    FakeUserDefaults defaults;
    FakeLog log;
    AppSettings settings{defaults, log};
    FileTypesListModel list{settings};
};

TEST_F(FileTypesListModelTest, HasASectionOfEachCategoryWithAllItsTypes) {
    const auto sections = list.sections();
    ASSERT_EQ(sections.size(), 3U);
    EXPECT_EQ(sections[0].title, "Plain Text");
    EXPECT_EQ(sections[1].title, "Code");
    EXPECT_EQ(sections[2].title, "Office");
    EXPECT_THAT(section(0), ElementsAre("txt", "md", "rtf", "csv"));
    EXPECT_THAT(section(1),
                ElementsAre("json", "yaml", "xml", "html", "css", "js", "sh", "py", "swift"));
    EXPECT_THAT(section(2), ElementsAre("docx", "xlsx", "pptx"));
    EXPECT_EQ(sections[0].rows[1],
              (FileTypeRowContent{
                  {"md", "Markdown", "md", FileTypeCategory::plainText, "doc.richtext"}, true}));
}

TEST_F(FileTypesListModelTest, ASwitchIsWrittenAtOnce) {
    EXPECT_TRUE(isOn("md"));
    list.setEnabled(false, "md");
    EXPECT_FALSE(isOn("md"));
    EXPECT_TRUE(isOn("txt"));
    EXPECT_THAT(std::get<Ids>(defaults.values.at("enabledFileTypeIDs")), Not(Contains("md")));
    list.setEnabled(true, "md");
    EXPECT_TRUE(isOn("md"));
}

TEST_F(FileTypesListModelTest, ACategoryThatIsSwitchedOffKeepsItsSection) {
    for (const auto* id : {"docx", "xlsx", "pptx"}) {
        list.setEnabled(false, id);
    }
    EXPECT_THAT(section(2), ElementsAre("docx", "xlsx", "pptx"));
    EXPECT_FALSE(isOn("xlsx"));
}

TEST_F(FileTypesListModelTest, TheRowsOfASectionAreInTheUsersOrder) {
    settings.fileTypeOrder.set({"swift", "csv", "json", "md"});
    EXPECT_THAT(section(0), ElementsAre("csv", "md", "txt", "rtf"));
    EXPECT_THAT(section(1),
                ElementsAre("swift", "json", "yaml", "xml", "html", "css", "js", "sh", "py"));
}

TEST_F(FileTypesListModelTest, ATypeThatTheOrderNamesTwiceHasOneRow) {
    settings.fileTypeOrder.set({"md", "txt", "md", "md"});
    EXPECT_THAT(section(0), ElementsAre("md", "txt", "rtf", "csv"));
    EXPECT_TRUE(list.move("md", after, "txt"));
    EXPECT_THAT(section(0), ElementsAre("txt", "md", "rtf", "csv"));
}

TEST_F(FileTypesListModelTest, MovingKeepsTheOrderOfAllOthers) {
    settings.fileTypeOrder.set({"docx", "txt", "py", "md", "json", "rtf", "csv", "yaml", "xml",
                                "html", "css", "js", "sh", "swift", "xlsx", "pptx"});
    EXPECT_TRUE(list.move("csv", before, "md"));
    EXPECT_THAT(settings.fileTypeOrder.get(),
                ElementsAre("docx", "txt", "py", "csv", "md", "json", "rtf", "yaml", "xml", "html",
                            "css", "js", "sh", "swift", "xlsx", "pptx"));
    EXPECT_TRUE(list.move("txt", after, "rtf"));
    EXPECT_THAT(settings.fileTypeOrder.get(),
                ElementsAre("docx", "py", "csv", "md", "json", "rtf", "txt", "yaml", "xml", "html",
                            "css", "js", "sh", "swift", "xlsx", "pptx"));
    EXPECT_EQ(defaults.values.at("fileTypeOrder"), PropertyValue(settings.fileTypeOrder.get()));
}

TEST_F(FileTypesListModelTest, AMoveThatChangesNothingWritesNothing) {
    defaults.written.clear();
    EXPECT_FALSE(list.move("md", before, "md"));
    EXPECT_FALSE(list.move("md", after, "txt"));
    EXPECT_FALSE(list.move("md", before, "rtf"));
    EXPECT_FALSE(list.move("md", before, "json"));
    EXPECT_FALSE(list.move("md", before, "unknown"));
    EXPECT_FALSE(list.move("unknown", before, "md"));
    EXPECT_THAT(defaults.written, testing::IsEmpty());
}

TEST_F(FileTypesListModelTest, TheKeyboardMovesByOnePlaceWithinTheSection) {
    EXPECT_TRUE(list.move("rtf", up));
    EXPECT_THAT(section(0), ElementsAre("txt", "rtf", "md", "csv"));
    EXPECT_TRUE(list.move("txt", down));
    EXPECT_THAT(section(0), ElementsAre("rtf", "txt", "md", "csv"));
    EXPECT_TRUE(list.move("rtf", down));
    EXPECT_THAT(section(0), ElementsAre("txt", "rtf", "md", "csv"));
    EXPECT_THAT(section(1),
                ElementsAre("json", "yaml", "xml", "html", "css", "js", "sh", "py", "swift"));
}

TEST_F(FileTypesListModelTest, AtTheEndsOfASectionTheKeyboardMovesNothing) {
    defaults.written.clear();
    EXPECT_FALSE(list.move("txt", up));
    EXPECT_FALSE(list.move("csv", down));
    EXPECT_FALSE(list.move("json", up));
    EXPECT_FALSE(list.move("pptx", down));
    EXPECT_FALSE(list.move("unknown", down));
    EXPECT_THAT(defaults.written, testing::IsEmpty());
}

TEST_F(FileTypesListModelTest, TheKeyboardPassesTypesOfOtherSections) {
    settings.fileTypeOrder.set({"txt", "json", "docx", "md", "rtf", "csv", "yaml", "xml", "html",
                                "css", "js", "sh", "py", "swift", "xlsx", "pptx"});
    EXPECT_TRUE(list.move("md", up));
    EXPECT_THAT(section(0), ElementsAre("md", "txt", "rtf", "csv"));
}

} // namespace
} // namespace blankwell
