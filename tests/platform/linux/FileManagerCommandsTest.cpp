#include "platform/linux/FileManagerCommands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const FileUrl home("/home/u");
const FileUrl a("/a b");
const FileUrl b("/b");
const FileUrl c("/c");
/// A window with two tabs and one that does not tell.
const OpenFolders twoWindows{.windows = {{a, b}, {}}};
const OpenFolders nothing;

TEST(FileManagerCommandsTest, EachFolderBecomesAWindow) {
    EXPECT_THAT(startCommands(FileManager::nautilus, twoWindows, home),
                ElementsAre(Command{"nautilus", "--new-window", "/a b", "/b", "/home/u"}));
    EXPECT_THAT(startCommands(FileManager::thunar, twoWindows, home),
                ElementsAre(Command{"thunar", "/a b", "/b", "/home/u"}));
    EXPECT_THAT(startCommands(FileManager::nemo, twoWindows, home),
                ElementsAre(Command{"nemo", "/a b", "/b", "/home/u"}));
    EXPECT_THAT(startCommands(FileManager::caja, twoWindows, home),
                ElementsAre(Command{"caja", "--no-desktop", "--no-default-window", "/a b", "/b",
                                    "/home/u"}));
}

TEST(FileManagerCommandsTest, TabsStayTabsWhereACommandOpensThem) {
    EXPECT_THAT(startCommands(FileManager::dolphin, twoWindows, home),
                ElementsAre(Command{"dolphin", "--new-window", "/a b", "/b"},
                            Command{"dolphin", "--new-window", "/home/u"}));
    EXPECT_THAT(startCommands(FileManager::pcmanfmQt, twoWindows, home),
                ElementsAre(Command{"pcmanfm-qt", "--new-window", "/a b", "/b"},
                            Command{"pcmanfm-qt", "--new-window", "/home/u"}));
}

TEST(FileManagerCommandsTest, WithoutWindowsItWaitsInTheBackground) {
    EXPECT_THAT(startCommands(FileManager::nautilus, nothing, home),
                ElementsAre(Command{"nautilus", "--gapplication-service"}));
    EXPECT_THAT(startCommands(FileManager::dolphin, nothing, home),
                ElementsAre(Command{"dolphin", "--daemon"}));
    EXPECT_THAT(startCommands(FileManager::thunar, nothing, home),
                ElementsAre(Command{"thunar", "--daemon"}));
    EXPECT_THAT(startCommands(FileManager::nemo, nothing, home),
                ElementsAre(Command{"nemo", "--no-default-window"}));
    EXPECT_THAT(startCommands(FileManager::caja, nothing, home), IsEmpty());
    EXPECT_THAT(startCommands(FileManager::pcmanfmQt, nothing, home),
                ElementsAre(Command{"pcmanfm-qt", "--daemon-mode"}));
}

TEST(FileManagerCommandsTest, ADesktopThatWasDrawnIsDrawnAgain) {
    EXPECT_THAT(startCommands(FileManager::caja, {.windows = {{c}}, .drawsDesktop = true}, home),
                ElementsAre(Command{"caja", "--force-desktop", "--no-default-window", "/c"}));
    EXPECT_THAT(startCommands(FileManager::caja, {.windows = {}, .drawsDesktop = true}, home),
                ElementsAre(Command{"caja", "--force-desktop", "--no-default-window"}));
    EXPECT_THAT(
        startCommands(FileManager::pcmanfmQt, {.windows = {{c}}, .drawsDesktop = true}, home),
        ElementsAre(Command{"pcmanfm-qt", "--new-window", "/c"},
                    Command{"pcmanfm-qt", "--desktop"}));
}

TEST(FileManagerCommandsTest, DolphinAloneHasNoCommandToQuit) {
    EXPECT_EQ(quitCommand(FileManager::dolphin), std::nullopt);
    EXPECT_EQ(quitCommand(FileManager::thunar), (Command{"thunar", "--quit"}));
}

} // namespace
} // namespace blankwell
