#include "platform/linux/FrontWindow.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

using Kind = DesktopWindow::Kind;

DesktopWindow window(std::string windowClass, std::string title) {
    return {.windowClass = std::move(windowClass), .title = std::move(title), .workspace = 0};
}

/// The title of the front window among `windows`, the lowest first; "(none)" where there is none.
std::string frontTitle(std::vector<DesktopWindow> windows) {
    const auto front = frontWindow({.windows = std::move(windows), .workspace = 0});
    return front ? front->window.title : "(none)";
}

TEST(FrontWindowTest, IsTheHighestOfTheFileManagers) {
    EXPECT_EQ(frontTitle({window("dolphin", "low"), window("Thunar", "high")}), "high");
}

TEST(FrontWindowTest, WindowsOfOtherProgramsAboveItDoNotCount) {
    EXPECT_EQ(frontTitle({window("Nemo", "folder"), window("firefox", "page"), window("", "?")}),
              "folder");
}

TEST(FrontWindowTest, ThereIsNoneWithoutAFileManager) {
    EXPECT_EQ(frontTitle({}), "(none)");
    EXPECT_EQ(frontTitle({window("firefox", "page"), window("nemolike", "x")}), "(none)");
}

TEST(FrontWindowTest, AMinimisedWindowDoesNotCount) {
    auto minimised = window("dolphin", "minimised");
    minimised.isHidden = true;
    EXPECT_EQ(frontTitle({window("dolphin", "shown"), minimised}), "shown");
}

TEST(FrontWindowTest, ADialogDoesNotCount) {
    auto dialog = window("dolphin", "Properties");
    dialog.kind = Kind::other;
    EXPECT_EQ(frontTitle({window("dolphin", "folder"), dialog}), "folder");
}

TEST(FrontWindowTest, AWindowOnAnotherVirtualDesktopDoesNotCount) {
    auto elsewhere = window("dolphin", "elsewhere");
    elsewhere.workspace = 1;
    EXPECT_EQ(frontTitle({window("dolphin", "here"), elsewhere}), "here");

    auto everywhere = window("dolphin", "everywhere");
    everywhere.workspace = DesktopWindow::everyWorkspace;
    EXPECT_EQ(frontTitle({window("dolphin", "here"), everywhere}), "everywhere");
}

TEST(FrontWindowTest, WithoutVirtualDesktopsEachWindowCounts) {
    auto elsewhere = window("dolphin", "elsewhere");
    elsewhere.workspace = 3;
    EXPECT_TRUE(frontWindow({.windows = {elsewhere}}));
}

TEST(FrontWindowTest, TheDesktopOfAFileManagerIsBelowItsWindows) {
    auto desktop = window("Caja", "Desktop");
    desktop.kind = Kind::desktop;
    EXPECT_EQ(frontTitle({desktop, window("Caja", "folder")}), "folder");
    EXPECT_EQ(frontTitle({desktop}), "Desktop");
}

struct WindowClass {
    const char* name;
    FileManager fileManager;
};

struct WindowClassTest : testing::TestWithParam<WindowClass> {};

TEST_P(WindowClassTest, NamesItsFileManager) {
    const auto front = frontWindow({.windows = {window(GetParam().name, "")}});
    ASSERT_TRUE(front);
    EXPECT_EQ(front->fileManager, GetParam().fileManager);
}

INSTANTIATE_TEST_SUITE_P(AsTheProgramsSetThem, WindowClassTest,
                         testing::Values(WindowClass{"org.gnome.Nautilus", FileManager::nautilus},
                                         WindowClass{"Org.gnome.Nautilus", FileManager::nautilus},
                                         WindowClass{"dolphin", FileManager::dolphin},
                                         WindowClass{"Thunar", FileManager::thunar},
                                         WindowClass{"thunar", FileManager::thunar},
                                         WindowClass{"Nemo", FileManager::nemo},
                                         WindowClass{"Nemo-desktop", FileManager::nemo},
                                         WindowClass{"Caja", FileManager::caja},
                                         WindowClass{"pcmanfm-qt", FileManager::pcmanfmQt}));

TEST(FileManagerWindowsTest, AreAllThatShowFoldersWhereverTheyStand) {
    auto minimised = window("dolphin", "minimised");
    minimised.isHidden = true;
    auto elsewhere = window("Thunar", "elsewhere");
    elsewhere.workspace = 3;
    auto desktop = window("Caja", "desktop");
    desktop.kind = Kind::desktop;
    auto dialog = window("Thunar", "dialog");
    dialog.kind = Kind::other;
    const auto found = fileManagerWindows(
        {.windows = {desktop, minimised, dialog, window("firefox", "page"), elsewhere},
         .workspace = 0});
    EXPECT_EQ(found, (std::vector<FileManagerWindow>{{FileManager::caja, desktop},
                                                     {FileManager::dolphin, minimised},
                                                     {FileManager::thunar, elsewhere}}));
}

} // namespace
} // namespace blankwell
