#include "shell/StatusMenu.h"

#include "filetypes/FileTypeCatalog.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using enum CreationDestinationMode;
using enum StatusMenuCommand;

using Item = MenuCommand<StatusMenuAction>;
using Creation = Submenu<StatusMenuAction>;

/// A menu in short: titles, "-" for a separator, "[...]" for a header and "... >" for a submenu.
std::vector<std::string> outline(const StatusMenu& menu) {
    std::vector<std::string> lines;
    for (const auto& item : menu) {
        if (const auto* const command = std::get_if<Item>(&item)) {
            lines.push_back(command->title);
        } else if (const auto* const submenu = std::get_if<Creation>(&item)) {
            lines.push_back(submenu->title + " >");
        } else if (const auto* const header = std::get_if<MenuHeader>(&item)) {
            lines.push_back("[" + header->title + "]");
        } else {
            lines.emplace_back("-");
        }
    }
    return lines;
}

std::vector<FileTypeDefinition> typesOf(std::vector<std::string> ids) {
    std::vector<FileTypeDefinition> types;
    std::ranges::transform(ids, std::back_inserter(types),
                           [](const std::string& id) { return *FileTypeCatalog::definition(id); });
    return types;
}

StatusMenu creationItems(const std::vector<FileTypeDefinition>& types, std::size_t index) {
    return std::get<Creation>(makeStatusMenu(types, std::nullopt).at(index)).items;
}

TEST(StatusMenuTest, HasItsItemsFromTopToBottom) {
    EXPECT_THAT(outline(makeStatusMenu({}, true)),
                ElementsAre("Quick Create...", "Create on Desktop >", "Create in Finder Folder >",
                            "-", "Open Blankwell+", "Check for Updates...", "-",
                            "Uninstall Blankwell+...", "Quit Blankwell+"));
}

TEST(StatusMenuTest, ABuildWithoutUpdatesHasNoItemForThem) {
    EXPECT_THAT(outline(makeStatusMenu({}, std::nullopt)),
                ElementsAre("Quick Create...", "Create on Desktop >", "Create in Finder Folder >",
                            "-", "Open Blankwell+", "-", "Uninstall Blankwell+...",
                            "Quit Blankwell+"));
}

TEST(StatusMenuTest, EveryCommandHasItsSymbolAndItsAction) {
    const auto menu = makeStatusMenu({}, true);
    const auto expected = [](std::string title, std::string symbol, StatusMenuCommand action) {
        return Item{title, {std::move(symbol), title}, true, action};
    };
    EXPECT_EQ(std::get<Item>(menu[0]),
              expected("Quick Create...", "plus.square.on.square", showQuickCreate));
    EXPECT_EQ(std::get<Item>(menu[4]), expected("Open Blankwell+", "macwindow", openMainWindow));
    EXPECT_EQ(std::get<Item>(menu[5]),
              expected("Check for Updates...", "arrow.triangle.2.circlepath", checkForUpdates));
    EXPECT_EQ(std::get<Item>(menu[7]), expected("Uninstall Blankwell+...", "trash", uninstall));
    EXPECT_EQ(std::get<Item>(menu[8]), expected("Quit Blankwell+", "power", quit));
}

TEST(StatusMenuTest, CheckingIsEnabledExactlyWhenItIsPossible) {
    EXPECT_TRUE(std::get<Item>(makeStatusMenu({}, true).at(5)).isEnabled);
    EXPECT_FALSE(std::get<Item>(makeStatusMenu({}, false).at(5)).isEnabled);
}

TEST(StatusMenuTest, TheCreationSubmenusHaveSymbols) {
    const auto menu = makeStatusMenu({}, std::nullopt);
    EXPECT_EQ(std::get<Creation>(menu[1]).symbol, (MenuSymbol{"desktopcomputer", "Desktop"}));
    EXPECT_EQ(std::get<Creation>(menu[2]).symbol, (MenuSymbol{"folder", "Finder Folder"}));
}

TEST(StatusMenuTest, TypesAreGroupedByCategoryInTheUsersOrder) {
    const auto types = typesOf({"docx", "py", "md", "json", "txt"});
    for (const std::size_t submenu : {1U, 2U}) {
        EXPECT_THAT(outline(creationItems(types, submenu)),
                    ElementsAre("[Plain Text]", "Markdown", "Text", "-", "[Code]", "Python", "JSON",
                                "-", "[Office]", "Word Document"));
    }
}

TEST(StatusMenuTest, ACategoryWithoutTypesLeavesNothingBehind) {
    EXPECT_THAT(outline(creationItems(typesOf({"txt", "docx"}), 1)),
                ElementsAre("[Plain Text]", "Text", "-", "[Office]", "Word Document"));
    EXPECT_THAT(outline(creationItems(typesOf({"py"}), 1)), ElementsAre("[Code]", "Python"));
}

TEST(StatusMenuTest, WithoutTypesTheCreationSubmenusAreEmpty) {
    EXPECT_THAT(creationItems({}, 1), IsEmpty());
    EXPECT_THAT(creationItems({}, 2), IsEmpty());
}

TEST(StatusMenuTest, ATypesItemCreatesItAtTheSubmenusDestination) {
    const auto types = typesOf({"md"});
    const auto expected = [&](CreationDestinationMode destination) {
        return Item{"Markdown",
                    {"doc.richtext", "Markdown"},
                    true,
                    FileCreationMenuAction{types[0], destination}};
    };
    EXPECT_EQ(std::get<Item>(creationItems(types, 1).at(1)), expected(desktop));
    EXPECT_EQ(std::get<Item>(creationItems(types, 2).at(1)), expected(frontFinderFolder));
}

} // namespace
} // namespace blankwell
