#include "filetypes/FileTypeCatalog.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <unordered_set>

namespace blankwell {
namespace {

using enum FileTypeCategory;
using testing::ElementsAre;

TEST(FileTypeCatalogTest, ListsTheSixteenTypesInTheirOrder) {
    constexpr auto angleBrackets = "chevron.left.forwardslash.chevron.right";
    const std::vector<FileTypeDefinition> expected{
        {"txt", "Text", "txt", plainText, "doc.text"},
        {"md", "Markdown", "md", plainText, "doc.richtext"},
        {"rtf", "Rich Text", "rtf", plainText, "doc.richtext.fill"},
        {"csv", "CSV", "csv", plainText, "tablecells"},
        {"json", "JSON", "json", code, "curlybraces"},
        {"yaml", "YAML", "yaml", code, "list.bullet.indent"},
        {"xml", "XML", "xml", code, angleBrackets},
        {"html", "HTML", "html", code, "globe"},
        {"css", "CSS", "css", code, "paintbrush"},
        {"js", "JavaScript", "js", code, "scroll"},
        {"sh", "Shell Script", "sh", code, "terminal"},
        {"py", "Python", "py", code, angleBrackets},
        {"swift", "Swift", "swift", code, "swift"},
        {"docx", "Word Document", "docx", office, "doc.fill"},
        {"xlsx", "Excel Spreadsheet", "xlsx", office, "tablecells.fill"},
        {"pptx", "PowerPoint Presentation", "pptx", office, "rectangle.on.rectangle"},
    };
    const auto types = FileTypeCatalog::builtInTypes();
    EXPECT_EQ(std::vector(types.begin(), types.end()), expected);
}

TEST(FileTypeCatalogTest, PythonIsFoundAndSharesItsSymbolWithXml) {
    const auto* const python = FileTypeCatalog::definition("py");
    ASSERT_NE(python, nullptr);
    EXPECT_EQ(python->displayName, "Python");
    EXPECT_EQ(python->sfSymbolName, "chevron.left.forwardslash.chevron.right");
    EXPECT_EQ(python->sfSymbolName, FileTypeCatalog::definition("xml")->sfSymbolName);
}

TEST(FileTypeCatalogTest, IdsAreComparedExactly) {
    for (const auto* id : {"TXT", "Txt", "txt ", "", "exe", ".txt"}) {
        EXPECT_EQ(FileTypeCatalog::definition(id), nullptr) << id;
    }
}

TEST(FileTypeCatalogTest, EveryTypeIsFoundByItsIdWhichIsItsExtension) {
    for (const auto& type : FileTypeCatalog::builtInTypes()) {
        EXPECT_EQ(FileTypeCatalog::definition(type.id), &type);
        EXPECT_EQ(type.id, type.fileExtension);
    }
}

TEST(FileTypeCatalogTest, TheDefaultOrderIsThatOfTheList) {
    EXPECT_THAT(FileTypeCatalog::defaultOrder(),
                ElementsAre("txt", "md", "rtf", "csv", "json", "yaml", "xml", "html", "css", "js",
                            "sh", "py", "swift", "docx", "xlsx", "pptx"));
}

TEST(FileTypeCatalogTest, EveryTypeIsEnabledByDefault) {
    const auto& order = FileTypeCatalog::defaultOrder();
    EXPECT_EQ(FileTypeCatalog::defaultEnabledIDs(),
              std::set<std::string>(order.begin(), order.end()));
    EXPECT_EQ(FileTypeCatalog::defaultEnabledIDs().size(), 16U);
}

TEST(FileTypeCategoryTest, IsIteratedAsPlainTextCodeOffice) {
    std::vector<std::string_view> titles;
    for (const auto category : allFileTypeCategories) {
        titles.push_back(rawValue(category));
    }
    EXPECT_THAT(titles, ElementsAre("Plain Text", "Code", "Office"));
}

TEST(FileTypeDefinitionTest, EncodesItsFieldsUnderTheirNames) {
    const nlohmann::json json = *FileTypeCatalog::definition("sh");
    EXPECT_EQ(json, nlohmann::json::parse(R"({"id": "sh", "displayName": "Shell Script",
        "fileExtension": "sh", "category": "Code", "sfSymbolName": "terminal"})"));
    EXPECT_EQ(json.get<FileTypeDefinition>(), *FileTypeCatalog::definition("sh"));
}

TEST(FileTypeDefinitionTest, DecodesACategoryByItsTitleOnly) {
    nlohmann::json json = *FileTypeCatalog::definition("txt");
    json["category"] = "Plain Text";
    EXPECT_EQ(json.get<FileTypeDefinition>().category, plainText);
    json["category"] = "plainText";
    EXPECT_THROW((void)json.get<FileTypeDefinition>(), nlohmann::json::exception);
}

TEST(FileTypeDefinitionTest, DoesNotDecodeWithoutEachMember) {
    const nlohmann::json whole = *FileTypeCatalog::definition("txt");
    for (const auto& [name, value] : whole.items()) {
        auto json = whole;
        json.erase(name);
        EXPECT_THROW((void)json.get<FileTypeDefinition>(), nlohmann::json::exception) << name;
    }
}

TEST(FileTypeDefinitionTest, HashesOverAllFields) {
    const FileTypeDefinition text{"txt", "Text", "txt", plainText, "doc.text"};
    const std::unordered_set<FileTypeDefinition> set{text, text};
    EXPECT_EQ(set.size(), 1U);
    const std::hash<FileTypeDefinition> hashOf;
    for (const FileTypeDefinition& other : {
             FileTypeDefinition{"text", "Text", "txt", plainText, "doc.text"},
             FileTypeDefinition{"txt", "Words", "txt", plainText, "doc.text"},
             FileTypeDefinition{"txt", "Text", "text", plainText, "doc.text"},
             FileTypeDefinition{"txt", "Text", "txt", code, "doc.text"},
             FileTypeDefinition{"txt", "Text", "txt", plainText, "doc"},
         }) {
        EXPECT_NE(other, text);
        EXPECT_NE(hashOf(other), hashOf(text));
    }
}

} // namespace
} // namespace blankwell
