#include "platform/qt/QtMenu.h"

#include "support/FakeMainQueue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QMenu>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Command = MenuCommand<std::function<void()>>;

struct QtMenuTest : testing::Test {
    Command command(std::string title, bool isEnabled = true) {
        return {.title = title,
                .symbol = {.name = "doc.text"},
                .isEnabled = isEnabled,
                .action = [this, title] { chosen.push_back(title); }};
    }

    FakeMainQueue queue;
    SymbolIcons icons = [](std::string_view name) {
        return name == "doc.text" ? QIcon(QPixmap(16, 16)) : QIcon();
    };
    QMenu menu;
    std::vector<std::string> chosen;
};

TEST_F(QtMenuTest, AHeaderIsADisabledItemWithItsTitle) {
    fillMenu(menu, {MenuHeader{"Plain Text"}}, queue, icons);
    ASSERT_EQ(menu.actions().size(), 1);
    EXPECT_EQ(menu.actions()[0]->text(), "Plain Text");
    EXPECT_FALSE(menu.actions()[0]->isEnabled());
    EXPECT_FALSE(menu.actions()[0]->isSeparator());
}

TEST_F(QtMenuTest, ACommandRunsFromTheQueueAndNotInsideTheMenu) {
    fillMenu(menu, {command("Text"), MenuSeparator{}, command("Markdown")}, queue, icons);
    EXPECT_TRUE(menu.actions()[1]->isSeparator());
    menu.actions()[2]->trigger();
    EXPECT_THAT(chosen, IsEmpty());
    queue.run();
    EXPECT_THAT(chosen, ElementsAre("Markdown"));
}

TEST_F(QtMenuTest, ACommandThatIsDisabledCannotBeChosen) {
    fillMenu(menu, {command("Check for Updates...", false)}, queue, icons);
    menu.actions()[0]->trigger();
    queue.run();
    EXPECT_THAT(chosen, IsEmpty());
}

TEST_F(QtMenuTest, AnAmpersandIsPartOfTheTitle) {
    fillMenu(menu, {command("Plain & Simple")}, queue, icons);
    EXPECT_EQ(menu.actions()[0]->text(), "Plain && Simple");
}

TEST_F(QtMenuTest, ASubmenuBearsItsTitleAndItsItems) {
    fillMenu(menu,
             {Submenu<std::function<void()>>{
                 .title = "Create on Desktop", .symbol = {}, .items = {command("Text")}}},
             queue, icons);
    const auto* const child = menu.actions()[0]->menu();
    ASSERT_NE(child, nullptr);
    EXPECT_EQ(child->title(), "Create on Desktop");
    child->actions()[0]->trigger();
    queue.run();
    EXPECT_THAT(chosen, ElementsAre("Text"));
}

TEST_F(QtMenuTest, FillingAgainLeavesNothingOfWhatWasThere) {
    const ActionMenu items{
        command("Text"),
        Submenu<std::function<void()>>{.title = "More", .symbol = {}, .items = {command("CSV")}}};
    fillMenu(menu, items, queue, icons);
    fillMenu(menu, items, queue, icons);
    EXPECT_EQ(menu.actions().size(), 2);
    EXPECT_EQ(menu.findChildren<QMenu*>().size(), 1);
}

TEST_F(QtMenuTest, ACommandMayReplaceTheMenuThatItIsIn) {
    auto replacing = command("Replace");
    replacing.action = [this] { fillMenu(menu, {command("New")}, queue, icons); };
    fillMenu(menu, {replacing}, queue, icons);
    menu.actions()[0]->trigger();
    queue.run();
    EXPECT_EQ(menu.actions()[0]->text(), "New");
}

TEST_F(QtMenuTest, ASymbolIsAnIconAndAnUnknownOneIsNone) {
    auto unknown = command("Unknown");
    unknown.symbol.name = "no.such.symbol";
    fillMenu(menu, {command("Text"), unknown}, queue, icons);
    EXPECT_FALSE(menu.actions()[0]->icon().isNull());
    EXPECT_TRUE(menu.actions()[1]->icon().isNull());
}

} // namespace
} // namespace blankwell
