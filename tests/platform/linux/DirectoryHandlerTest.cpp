#include "platform/linux/DirectoryHandler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace blankwell {
namespace {

using testing::ElementsAre;

const FileUrl item("/a b/c#d.txt");

Command opening(std::string exec) {
    return revealCommands({.desktopId = "x.desktop", .exec = std::move(exec)}, item).front();
}

TEST(RevealCommandsTest, KnownProgramsSelectTheItem) {
    const auto first = [](std::string id) {
        return revealCommands({.desktopId = std::move(id), .exec = "program %U"}, item).front();
    };
    EXPECT_THAT(first("org.gnome.Nautilus.desktop"),
                ElementsAre("nautilus", "--select", "file:///a%20b/c%23d.txt"));
    EXPECT_THAT(first("org.kde.dolphin.desktop"),
                ElementsAre("dolphin", "--select", "file:///a%20b/c%23d.txt"));
    EXPECT_THAT(first("thunar.desktop"), ElementsAre("thunar", "/a b/c#d.txt"));
    EXPECT_THAT(first("nemo.desktop"), ElementsAre("nemo", "/a b/c#d.txt"));
}

TEST(RevealCommandsTest, AKnownProgramThatIsNotInThePathLeavesItsEntry) {
    const auto commands = revealCommands(
        {.desktopId = "org.gnome.Nautilus.desktop", .exec = "flatpak run nautilus %U"}, item);
    ASSERT_EQ(commands.size(), 2U);
    EXPECT_THAT(commands[1], ElementsAre("flatpak", "run", "nautilus", "file:///a%20b"));
}

TEST(RevealCommandsTest, OtherProgramsOpenTheFolderByTheirEntry) {
    EXPECT_THAT(opening("fm %U"), ElementsAre("fm", "file:///a%20b"));
    EXPECT_THAT(opening("fm --dir=%f --x"), ElementsAre("fm", "--dir=/a b", "--x"));
    EXPECT_THAT(opening("\"my fm\" 'two words' %F"), ElementsAre("my fm", "two words", "/a b"));
}

TEST(RevealCommandsTest, FieldCodesThatNameNoFileAreDropped) {
    EXPECT_THAT(opening("fm %i -caption=%c %k 100%% %u"),
                ElementsAre("fm", "-caption=", "100%", "file:///a%20b"));
}

TEST(RevealCommandsTest, AnEntryWithoutAFileFieldGetsTheFolderAtItsEnd) {
    EXPECT_THAT(opening("fm --new"), ElementsAre("fm", "--new", "/a b"));
}

TEST(RevealCommandsTest, AnExecLineThatCannotBeReadGivesNoCommand) {
    EXPECT_TRUE(revealCommands({.desktopId = "x.desktop", .exec = "fm 'unclosed"}, item).empty());
    EXPECT_TRUE(revealCommands({.desktopId = "x.desktop", .exec = ""}, item).empty());
}

} // namespace
} // namespace blankwell
