#include "settings/ShortcutSettingsModel.h"

#include "filetypes/FileTypeCatalog.h"
#include "settings/AppSettings.h"
#include "settings/HotKeyFailures.h"
#include "support/FakeLog.h"
#include "support/FakeUserDefaults.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

constexpr QuickCreateShortcut controlOptionN{.keyCode = 45, .carbonModifiers = 0x1800};
constexpr HotKeyStatus refused = eventHotKeyExistsErr;
constexpr QuickCreateShortcut commandM{.keyCode = 46, .carbonModifiers = 0x100};

ShortcutCaption red(std::string text) {
    return {std::move(text), ColorRole::red};
}

ShortcutCaption secondary(std::string text) {
    return {std::move(text), ColorRole::secondaryLabel};
}

struct ShortcutSettingsModelTest : testing::Test {
    DirectShortcutRowContent row(const std::string& id, const HotKeyFailures& failed = {}) {
        const auto rows = model.rows(failed);
        return *std::ranges::find(rows, id, &DirectShortcutRowContent::fileTypeID);
    }

    FakeUserDefaults defaults;
    FakeLog log;
    AppSettings settings = [this] {
        defaults.values.insert_or_assign("appPresence", std::string("dockOnly"));
        return AppSettings(defaults, log);
    }();
    ShortcutSettingsModel model{settings};
};

TEST(ShortcutSettingsTextsTest, AreTheseAndNoOthers) {
    EXPECT_EQ(shortcutSettingsTexts,
              (ShortcutSettingsTexts{"Quick Create Shortcut", "keyboard", "arrow.counterclockwise",
                                     "Reset Quick Create shortcut", "Destination",
                                     "Direct File Shortcuts", "bolt.fill", "xmark.circle"}));
    EXPECT_THAT(destinationSegments,
                ElementsAre(DestinationSegment{CreationDestinationMode::desktop, "Desktop",
                                               "desktopcomputer"},
                            DestinationSegment{CreationDestinationMode::frontFinderFolder,
                                               "Finder Folder", "folder"}));
}

TEST_F(ShortcutSettingsModelTest, WithoutConflictsThereIsNoWarning) {
    settings.setShortcut(commandM, "md");
    EXPECT_EQ(model.quickCreateWarning({}), std::nullopt);
}

TEST_F(ShortcutSettingsModelTest, ATypeWithTheShortcutOfQuickCreateIsNamedAtBothPlaces) {
    settings.setShortcut(controlOptionN, "md");
    EXPECT_EQ(model.quickCreateWarning({}), red("Conflicts with Markdown"));
    EXPECT_EQ(row("md").caption, red("Conflicts with Quick Create"));
}

TEST_F(ShortcutSettingsModelTest, TheWarningNamesTheFirstTypeInTheUsersOrderEvenIfSwitchedOff) {
    settings.fileTypeOrder.set({"txt", "py", "md"});
    settings.setShortcut(controlOptionN, "md");
    settings.setShortcut(controlOptionN, "py");
    settings.setEnabled(false, "py");
    EXPECT_EQ(model.quickCreateWarning({}), red("Conflicts with Python"));
}

TEST_F(ShortcutSettingsModelTest, ThereIsARowForEveryTypeInTheUsersOrder) {
    auto order = FileTypeCatalog::defaultOrder();
    std::ranges::reverse(order);
    settings.fileTypeOrder.set(order);
    settings.setEnabled(false, "py");

    std::vector<std::string> ids;
    for (const auto& row : model.rows({})) {
        ids.push_back(row.fileTypeID);
    }
    EXPECT_THAT(ids, SizeIs(16));
    EXPECT_EQ(ids, order);
}

TEST_F(ShortcutSettingsModelTest, ARowShowsItsTypeAndItsShortcut) {
    EXPECT_EQ(row("md"),
              (DirectShortcutRowContent{"md", "doc.richtext", "Markdown", secondary(".md"),
                                        std::nullopt, "Clear Markdown shortcut", false}));
    settings.setShortcut(commandM, "md");
    EXPECT_EQ(row("md"),
              (DirectShortcutRowContent{"md", "doc.richtext", "Markdown", secondary(".md"),
                                        commandM, "Clear Markdown shortcut", true}));
}

TEST_F(ShortcutSettingsModelTest, TypesWithOneShortcutNameEachOther) {
    settings.setShortcut(commandM, "md");
    settings.setShortcut(commandM, "json");
    EXPECT_EQ(row("md").caption, red("Conflicts with JSON"));
    EXPECT_EQ(row("json").caption, red("Conflicts with Markdown"));

    settings.setShortcut(commandM, "py");
    EXPECT_EQ(row("py").caption, red("Conflicts with Markdown"));
    EXPECT_EQ(row("md").caption, red("Conflicts with JSON"));
}

TEST_F(ShortcutSettingsModelTest, ATypeThatIsSwitchedOffSaysThatAndNothingElse) {
    settings.setShortcut(controlOptionN, "md");
    settings.setEnabled(false, "md");
    const HotKeyFailures failed{.quickCreate = {}, .fileTypes = {{"md", refused}}};
    EXPECT_EQ(row("md", failed).caption, secondary(".md disabled"));
}

TEST_F(ShortcutSettingsModelTest, AShortcutThatCouldNotBeRegisteredSaysSo) {
    settings.setShortcut(commandM, "md");
    const HotKeyFailures failed{.quickCreate = refused, .fileTypes = {{"md", refused}}};
    EXPECT_EQ(row("md", failed).caption, red("Could not be registered"));
    EXPECT_EQ(row("txt", failed).caption, secondary(".txt"));
    EXPECT_EQ(model.quickCreateWarning(failed), red("Could not be registered"));
    EXPECT_EQ(model.quickCreateWarning({.quickCreate = {}, .fileTypes = failed.fileTypes}),
              std::nullopt);
}

TEST_F(ShortcutSettingsModelTest, AConflictIsToldBeforeAFailedRegistration) {
    settings.setShortcut(controlOptionN, "md");
    const HotKeyFailures failed{.quickCreate = refused, .fileTypes = {{"md", refused}}};
    EXPECT_EQ(row("md", failed).caption, red("Conflicts with Quick Create"));
    EXPECT_EQ(model.quickCreateWarning(failed), red("Conflicts with Markdown"));
}

TEST_F(ShortcutSettingsModelTest, AFailureOfATypeWithoutAShortcutIsOfThePast) {
    EXPECT_EQ(row("md", {.quickCreate = {}, .fileTypes = {{"md", refused}}}).caption,
              secondary(".md"));
}

TEST_F(ShortcutSettingsModelTest, RecordingAndClearingWriteTheShortcutsOfTypes) {
    model.setShortcut(commandM, "md");
    EXPECT_EQ(row("md").shortcut, commandM);
    model.setShortcut(std::nullopt, "md");
    EXPECT_EQ(row("md").shortcut, std::nullopt);
    EXPECT_FALSE(row("md").isClearEnabled);
    EXPECT_TRUE(settings.fileTypeShortcuts.get().empty());
    EXPECT_THAT(defaults.written, ElementsAre("fileTypeShortcuts", "fileTypeShortcuts"));
}

TEST_F(ShortcutSettingsModelTest, ResetRestoresTheDefaultEvenIfATypeHoldsIt) {
    model.setQuickCreateShortcut(commandM);
    EXPECT_EQ(model.quickCreateShortcut(), commandM);
    settings.setShortcut(controlOptionN, "md");
    model.resetQuickCreateShortcut();
    EXPECT_EQ(model.quickCreateShortcut(), controlOptionN);
    EXPECT_EQ(model.quickCreateWarning({}), red("Conflicts with Markdown"));
    EXPECT_THAT(defaults.written,
                ElementsAre("quickCreateShortcut", "fileTypeShortcuts", "quickCreateShortcut"));
}

TEST_F(ShortcutSettingsModelTest, TheDestinationIsWrittenAtOnce) {
    EXPECT_EQ(model.destination(), CreationDestinationMode::desktop);
    model.setDestination(CreationDestinationMode::frontFinderFolder);
    EXPECT_EQ(model.destination(), CreationDestinationMode::frontFinderFolder);
    EXPECT_EQ(defaults.values.at("directShortcutDestination"),
              PropertyValue(std::string("frontFinderFolder")));
}

} // namespace
} // namespace blankwell
