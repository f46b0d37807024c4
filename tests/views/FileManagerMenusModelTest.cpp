#include "views/FileManagerMenusModel.h"

#include "shell/UnavailableInstallation.h"
#include "support/FakeInstallation.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using enum FileManager;

struct FileManagerMenusModelTest : testing::Test {
    FileManagerMenusModelTest() { model.refresh(); }

    const std::vector<FileManagerMenuRow>& rows() { return model.content().get().rows; }

    const FileManagerMenuRow& row(FileManager manager) {
        return *std::ranges::find(rows(), manager, &FileManagerMenuRow::manager);
    }

    FakeInstallation installation;
    FileManagerMenusModel model{installation};
};

TEST_F(FileManagerMenusModelTest, OnlyInstalledFileManagersHaveARow) {
    EXPECT_THAT(rows(), ElementsAre(FileManagerMenuRow{.manager = dolphin,
                                                       .name = "Dolphin",
                                                       .isOn = true,
                                                       .canBeSwitched = true,
                                                       .note = ""},
                                    FileManagerMenuRow{.manager = thunar,
                                                       .name = "Thunar",
                                                       .isOn = false,
                                                       .canBeSwitched = true,
                                                       .note = ""}));
    EXPECT_EQ(model.content().get().text,
              "Choose which ones have a **Create File** command in their menus.");
}

TEST_F(FileManagerMenusModelTest, SwitchingChangesTheMenuAndTheRow) {
    model.turn(dolphin, false);
    EXPECT_FALSE(row(dolphin).isOn);
    EXPECT_EQ(row(dolphin).note, "");
    model.turn(dolphin, true);
    EXPECT_TRUE(row(dolphin).isOn);
    EXPECT_THAT(installation.turned,
                ElementsAre(std::pair(dolphin, false), std::pair(dolphin, true)));
}

TEST_F(FileManagerMenusModelTest, WhatMustBeRestartedIsSaid) {
    model.turn(thunar, true);
    EXPECT_EQ(row(thunar).note, "Takes effect when Thunar is started again.");
    EXPECT_FALSE(row(thunar).hasFailed);
    model.turn(thunar, false);
    EXPECT_EQ(row(thunar).note, "Takes effect when Thunar is started again.");
}

TEST_F(FileManagerMenusModelTest, AFailureIsToldAndTheRowShowsWhatThereIs) {
    installation.failWith = SystemError{SystemError::Domain::posix, 28, "The disk is full."};
    model.turn(thunar, true);
    EXPECT_FALSE(row(thunar).isOn);
    EXPECT_EQ(row(thunar).note, "The disk is full.");
    EXPECT_TRUE(row(thunar).hasFailed);
    EXPECT_TRUE(row(dolphin).isOn);
    installation.failWith.reset();
    model.turn(thunar, true);
    EXPECT_TRUE(row(thunar).isOn);
    EXPECT_FALSE(row(thunar).hasFailed);
}

TEST_F(FileManagerMenusModelTest, AMenuWithoutTypesSaysWhenItAppears) {
    installation.hasTypes = false;
    model.turn(dolphin, true);
    EXPECT_FALSE(row(dolphin).isOn);
    EXPECT_EQ(row(dolphin).note, "Appears when a file type is switched on.");
    installation.hasTypes = true;
    model.refresh();
    EXPECT_TRUE(row(dolphin).isOn);
    EXPECT_EQ(row(dolphin).note, "");
}

TEST_F(FileManagerMenusModelTest, ARefreshTakesInWhatOthersChanged) {
    model.turn(thunar, true);
    installation.menus = {{thunar, false}, {nemo, true}};
    model.refresh();
    EXPECT_THAT(
        rows(),
        ElementsAre(FileManagerMenuRow{.manager = thunar, .name = "Thunar", .note = ""},
                    FileManagerMenuRow{.manager = nemo, .name = "Nemo", .isOn = true, .note = ""}));
}

TEST_F(FileManagerMenusModelTest, ANoteHoldsUntilSomethingChanges) {
    model.turn(thunar, true);
    model.refresh();
    EXPECT_EQ(row(thunar).note, "Takes effect when Thunar is started again.");
}

TEST_F(FileManagerMenusModelTest, OnlyChangesAreAnnounced) {
    int announced = 0;
    const auto subscription = model.content().observeChanges([&](const auto&) { ++announced; });
    model.refresh();
    EXPECT_EQ(announced, 0);
    installation.menus[dolphin] = false;
    model.refresh();
    EXPECT_EQ(announced, 1);
}

TEST_F(FileManagerMenusModelTest, AFileManagerThatNeedsAPackageCannotBeSwitched) {
    installation.withoutPackage = {nautilus};
    model.refresh();
    EXPECT_EQ(row(nautilus),
              (FileManagerMenuRow{.manager = nautilus,
                                  .name = "Files (Nautilus)",
                                  .isOn = false,
                                  .canBeSwitched = false,
                                  .note = "It needs the package python3-nautilus."}));
}

TEST_F(FileManagerMenusModelTest, WithoutAFileManagerTheTextSaysWhichOnesItCouldBe) {
    installation.menus.clear();
    model.refresh();
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_EQ(model.content().get().text,
              "None of the file managers whose menus can have a **Create File** command is "
              "installed: Files (Nautilus), Dolphin, Thunar, Nemo, Caja and PCManFM-Qt.");
}

TEST(UnavailableInstallationTest, InASandboxTheMenusAreOutOfReachAndItIsSaid) {
    UnavailableInstallation installation;
    FileManagerMenusModel model(installation);
    model.refresh();
    EXPECT_THAT(model.content().get().rows, IsEmpty());
    EXPECT_THAT(model.content().get().text, HasSubstr("runs in a sandbox"));
    EXPECT_EQ(description(installation.menuStates()[0]), "out of reach of a sandbox");
    EXPECT_FALSE(installation.turnMenu(nemo, true));
}

} // namespace
} // namespace blankwell
