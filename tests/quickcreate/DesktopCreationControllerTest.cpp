#include "quickcreate/DesktopCreationController.h"

#include "filetypes/FileTypeCatalog.h"
#include "support/FakeCreationController.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using enum DestinationChoice;
using enum FileTypeCategory;

constexpr QuickCreateShortcut commandJ{38, 0x100};
constexpr QuickCreateShortcut commandK{40, 0x100};

const FileTypeDefinition& type(std::string_view id) {
    return *FileTypeCatalog::definition(id);
}

struct DesktopCreationControllerTest : testing::Test, FakeCreationController {
    /// The ids of the types that the panel lists in `category`.
    std::vector<std::string> listed(FileTypeCategory category) {
        std::vector<std::string> ids;
        for (const auto& one : controller.types(category)) {
            ids.push_back(one.id);
        }
        return ids;
    }

    std::vector<std::string> listed() {
        std::vector<std::string> ids;
        for (const auto category : allFileTypeCategories) {
            for (auto& id : listed(category)) {
                ids.push_back(std::move(id));
            }
        }
        return ids;
    }

    void search(std::string text) { controller.searchText.set(std::move(text)); }

    /// How often registrations were replaced while `change` and what follows of it ran. Shows in
    /// how often the Quick Create shortcut was registered.
    int registrationsIn(const std::function<void()>& change) {
        const auto countOf = [this] {
            return std::ranges::count_if(log.lines, [](const FakeLog::Line& line) {
                return line.message == "Registered ⌃ + ⌥ + N hot key";
            });
        };
        const auto before = countOf();
        change();
        mainQueue.run();
        return static_cast<int>(countOf() - before);
    }

    void press(const QuickCreateShortcut& shortcut) {
        (void)hotKeys.press(shortcut.keyCode, shortcut.carbonModifiers);
        mainQueue.run();
    }
};

TEST_F(DesktopCreationControllerTest, CreatesOnTheDesktopReportsAndReveals) {
    controller.create(type("txt"), desktop);
    EXPECT_EQ(files.contents("/Users/u/Desktop/Untitled.txt"), "");
    EXPECT_EQ(controller.statusMessage.get(), "Created Untitled.txt in Desktop");
    EXPECT_THAT(events,
                ElementsAre("cannot start /Users/u/Desktop", "write /Users/u/Desktop/Untitled.txt",
                            "reveal /Users/u/Desktop/Untitled.txt"));
    EXPECT_THAT(log.lines, ElementsAre(FakeLog::Line{LogLevel::notice, "DesktopCreation",
                                                     "Created /Users/u/Desktop/Untitled.txt"}));
    EXPECT_EQ(frontFolder.asked, 0);
}

TEST_F(DesktopCreationControllerTest, CreatesInTheFrontFolder) {
    files.addFolder("/Users/u/Projects");
    frontFolder.answer = "/Users/u/Projects/";
    controller.create(type("md"), frontFinderFolder);
    EXPECT_EQ(controller.statusMessage.get(), "Created Untitled.md in Projects");
    EXPECT_THAT(events, Contains("reveal /Users/u/Projects/Untitled.md"));
}

TEST_F(DesktopCreationControllerTest, AFallbackToTheDesktopIsToldInItsOwnWords) {
    controller.create(type("md"), frontFinderFolder);
    EXPECT_EQ(controller.statusMessage.get(), "Created Untitled.md on Desktop");
    EXPECT_THAT(events, Contains("reveal /Users/u/Desktop/Untitled.md"));
}

TEST_F(DesktopCreationControllerTest, ThePanelCreatesWhereItsPickerSays) {
    files.addFolder("/Users/u/Projects");
    frontFolder.answer = "/Users/u/Projects";
    controller.create(type("md"), panel);
    EXPECT_EQ(controller.statusMessage.get(), "Created Untitled.md in Desktop");
    controller.destinationMode.set(CreationDestinationMode::frontFinderFolder);
    controller.create(type("md"), panel);
    EXPECT_EQ(controller.statusMessage.get(), "Created Untitled.md in Projects");
}

TEST_F(DesktopCreationControllerTest, AFailureIsLoggedAndShownAndTheStatusStays) {
    controller.create(type("txt"), desktop);
    events.clear();
    files.failWritingWith = SystemError{SystemError::Domain::cocoa, 640, "disk full"};
    controller.create(type("txt"), desktop);
    EXPECT_THAT(alert.shown, ElementsAre(AlertContent{AlertContent::Style::warning,
                                                      "Could not create file", "disk full"}));
    EXPECT_EQ(log.lines.back(),
              (FakeLog::Line{LogLevel::error, "DesktopCreation", "Create failed: disk full"}));
    EXPECT_EQ(controller.statusMessage.get(), "Created Untitled.txt in Desktop");
    EXPECT_THAT(events, ElementsAre("cannot start /Users/u/Desktop", "activate",
                                    "alert Could not create file"));
}

TEST_F(DesktopCreationControllerTest, ASandboxedCreationAsksForTheFolder) {
    environment.variables["APP_SANDBOX_CONTAINER_ID"] = "container";
    controller.create(type("txt"), desktop);
    EXPECT_EQ(openPanel.shown.size(), 1U);
    EXPECT_EQ(alert.shown.at(0).informativeText,
              "Blankwell+ needs access to Desktop before it can create files there.");
}

TEST_F(DesktopCreationControllerTest, NothingIsSaidBeforeTheFirstCreation) {
    EXPECT_EQ(controller.statusMessage.get(), std::nullopt);
    EXPECT_EQ(controller.destinationMode.get(), CreationDestinationMode::desktop);
    EXPECT_EQ(controller.searchText.get(), "");
}

TEST_F(DesktopCreationControllerTest, CreatingLeavesThePanelOpen) {
    controller.showQuickCreatePanel();
    controller.create(type("txt"), panel);
    EXPECT_TRUE(panels.last->isVisible());
}

TEST_F(DesktopCreationControllerTest, ADirectShortcutCreatesWhereTheSettingsSayNow) {
    controller.createFromShortcut("md");
    EXPECT_EQ(frontFolder.asked, 0);
    settings.directShortcutDestination.set(CreationDestinationMode::frontFinderFolder);
    controller.createFromShortcut("md");
    EXPECT_EQ(frontFolder.asked, 1);
    EXPECT_EQ(controller.statusMessage.get(), "Created Untitled 2.md on Desktop");
}

TEST_F(DesktopCreationControllerTest, AShortcutForAnUnknownTypeIsOnlyLogged) {
    controller.createFromShortcut("exe");
    EXPECT_THAT(log.lines, ElementsAre(FakeLog::Line{LogLevel::error, "DesktopCreation",
                                                     "Unknown file type shortcut requested: exe"}));
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(DesktopCreationControllerTest, ADirectShortcutDoesNotAskWhetherTheTypeIsEnabled) {
    settings.setEnabled(false, "md");
    controller.createFromShortcut("md");
    EXPECT_THAT(events, Contains("reveal /Users/u/Desktop/Untitled.md"));
}

TEST_F(DesktopCreationControllerTest, ListsTheEnabledTypesInTheUsersOrder) {
    settings.fileTypeOrder.set({"py", "txt", "json", "md"});
    settings.enabledFileTypeIDs.set({"txt", "md", "py"});
    EXPECT_THAT(listed(plainText), ElementsAre("txt", "md"));
    EXPECT_THAT(listed(code), ElementsAre("py"));
    EXPECT_THAT(listed(office), IsEmpty());
}

TEST_F(DesktopCreationControllerTest, BlanksAroundTheSearchTextDoNotCount) {
    search("json");
    EXPECT_THAT(listed(), ElementsAre("json"));
    for (const auto* text : {"  json ", "\njson\t", "\u00A0json"}) {
        search(text);
        EXPECT_THAT(listed(), ElementsAre("json")) << text;
    }
    search("  ");
    EXPECT_EQ(listed().size(), 16U);
}

TEST_F(DesktopCreationControllerTest, NamesAreSearchedWhateverTheCase) {
    search("TEXT");
    EXPECT_THAT(listed(), ElementsAre("txt", "rtf"));
}

TEST_F(DesktopCreationControllerTest, ExtensionsAreSearchedWithoutTheirDot) {
    search("py");
    EXPECT_THAT(listed(), ElementsAre("py"));
    search(".py");
    EXPECT_THAT(listed(), IsEmpty());
    search("xlsx");
    EXPECT_THAT(listed(), ElementsAre("xlsx"));
}

TEST_F(DesktopCreationControllerTest, WithEveryTypeDisabledAllSectionsAreEmpty) {
    settings.enabledFileTypeIDs.set({});
    EXPECT_THAT(listed(), IsEmpty());
    search("json");
    EXPECT_THAT(listed(), IsEmpty());
}

TEST_F(DesktopCreationControllerTest, ThePanelIsMadeOnFirstUseAndKept) {
    EXPECT_EQ(panels.made, 0);
    controller.showQuickCreatePanel();
    controller.closeQuickCreatePanel();
    EXPECT_FALSE(panels.last->isVisible());
    controller.showQuickCreatePanel();
    EXPECT_TRUE(panels.last->isVisible());
    EXPECT_EQ(panels.made, 1);
    EXPECT_EQ(panels.lastController, &controller);
}

TEST_F(DesktopCreationControllerTest, ThePanelCanBeMadeAheadOfItsUse) {
    controller.prepareQuickCreatePanel();
    EXPECT_FALSE(panels.last->isVisible());
    controller.showQuickCreatePanel();
    EXPECT_EQ(panels.made, 1);
}

TEST_F(DesktopCreationControllerTest, ThePanelIsConfiguredOnce) {
    controller.showQuickCreatePanel();
    const auto& made = panels.last->configuration;
    EXPECT_EQ(made.contentSize, (Size{560, 600}));
    EXPECT_EQ(made.minimumSize, (Size{520, 520}));
    EXPECT_EQ(made.title, "Create File");
    EXPECT_TRUE(made.isTitled && made.isClosable && made.hasFullSizeContentView);
    EXPECT_TRUE(made.isTitleHidden && made.titlebarAppearsTransparent);
    EXPECT_EQ(made.backing, QuickCreatePanelConfiguration::Backing::buffered);
    EXPECT_FALSE(made.isDeferred);
    EXPECT_TRUE(made.isFloatingPanel);
    EXPECT_EQ(made.level, QuickCreatePanelConfiguration::Level::floating);
    EXPECT_TRUE(made.canJoinAllSpaces && made.isFullScreenAuxiliary);
    EXPECT_FALSE(made.isReleasedWhenClosed);
    EXPECT_TRUE(made.isMovableByWindowBackground);
}

TEST_F(DesktopCreationControllerTest, ThePanelIsPlacedShownAndTheApplicationActivated) {
    controller.showQuickCreatePanel();
    EXPECT_THAT(events, ElementsAre("place panel", "show panel", "activate"));
    EXPECT_EQ(panels.last->frame(), (Rect{{720 - 280, 263}, {560, 600}}));
}

TEST_F(DesktopCreationControllerTest, ThePanelKeepsTheSizeThatTheUserGaveIt) {
    controller.showQuickCreatePanel();
    panels.last->currentFrame.size = {700, 520};
    screens.pointer = Point{0, 0};
    controller.showQuickCreatePanel();
    EXPECT_EQ(panels.last->frame(), (Rect{{12, 12}, {700, 520}}));
}

TEST_F(DesktopCreationControllerTest, APanelOfADesktopWithoutAPointerIsNotPlaced) {
    screens.pointer = std::nullopt;
    controller.showQuickCreatePanel();
    EXPECT_THAT(events, ElementsAre("show panel", "activate"));
}

TEST_F(DesktopCreationControllerTest, ClosingAPanelThatWasNeverMadeDoesNothing) {
    controller.closeQuickCreatePanel();
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(DesktopCreationControllerTest, SearchTextAndDestinationSurviveClosing) {
    controller.showQuickCreatePanel();
    search("json");
    controller.destinationMode.set(CreationDestinationMode::frontFinderFolder);
    controller.closeQuickCreatePanel();
    controller.showQuickCreatePanel();
    EXPECT_EQ(controller.searchText.get(), "json");
    EXPECT_EQ(controller.destinationMode.get(), CreationDestinationMode::frontFinderFolder);
}

TEST_F(DesktopCreationControllerTest, ItsPropertiesAnnounceTheirChanges) {
    int announced = 0;
    const auto changes = controller.objectWillChange().observeChanges([&] { ++announced; });
    controller.create(type("txt"), desktop);
    search("x");
    controller.destinationMode.set(CreationDestinationMode::frontFinderFolder);
    EXPECT_EQ(announced, 3);
}

TEST_F(DesktopCreationControllerTest, TheHotKeysWorkFromTheStart) {
    settings.setShortcut(commandJ, "md");
    controller.start();
    press(defaultQuickCreateShortcut);
    EXPECT_TRUE(panels.last->isVisible());
    press(commandJ);
    EXPECT_THAT(events, Contains("reveal /Users/u/Desktop/Untitled.md"));
}

TEST_F(DesktopCreationControllerTest, ShortcutsOfDisabledTypesAndUnusableOnesAreNotRegistered) {
    settings.fileTypeShortcuts.set(
        {{"css", {4294967295, 0x100}}, {"js", {7, 0}}, {"md", commandJ}, {"txt", commandK}});
    settings.setEnabled(false, "md");
    controller.start();
    // Shortcuts that are left out here take no number away.
    EXPECT_THAT(hotKeys.registeredIDs(), ElementsAre(1U, 100U));
    press(commandK);
    EXPECT_THAT(events, Contains("reveal /Users/u/Desktop/Untitled.txt"));
}

TEST_F(DesktopCreationControllerTest, EachOfTheThreeSettingsRegistersOncePerChange) {
    EXPECT_EQ(registrationsIn([&] { controller.start(); }), 1);
    EXPECT_EQ(registrationsIn([&] { settings.setEnabled(false, "md"); }), 1);
    EXPECT_EQ(registrationsIn([&] { settings.setShortcut(commandJ, "txt"); }), 1);
    EXPECT_EQ(
        registrationsIn([&] { settings.quickCreateShortcut.set(defaultQuickCreateShortcut); }), 1);
}

TEST_F(DesktopCreationControllerTest, TheOtherSettingsDoNotRegister) {
    controller.start();
    EXPECT_EQ(registrationsIn([&] {
                  settings.fileTypeOrder.set({"md", "txt"});
                  settings.appPresence.set(AppPresence::menuBarOnly);
                  settings.directShortcutDestination.set(
                      CreationDestinationMode::frontFinderFolder);
                  settings.hasCompletedOnboarding.set(true);
              }),
              0);
}

TEST_F(DesktopCreationControllerTest, ARegistrationReflectsTheSettingsAsChanged) {
    settings.setShortcut(commandJ, "md");
    controller.start();
    settings.quickCreateShortcut.set(commandK);
    mainQueue.run();
    EXPECT_EQ(hotKeys.press(45, 0x1800), std::nullopt);
    EXPECT_EQ(hotKeys.press(commandK.keyCode, commandK.carbonModifiers), noErr);

    settings.setEnabled(false, "md");
    mainQueue.run();
    EXPECT_EQ(hotKeys.press(commandJ.keyCode, commandJ.carbonModifiers), std::nullopt);
}

TEST_F(DesktopCreationControllerTest, AfterTheStopNoKeyIsHeldAndNothingFollowsTheSettings) {
    controller.start();
    controller.showQuickCreatePanel();
    settings.setShortcut(commandJ, "md"); // its registration waits in the queue
    controller.stop();
    mainQueue.run();
    EXPECT_THAT(hotKeys.registered, IsEmpty());
    EXPECT_EQ(events.back(), "hide panel");
    EXPECT_EQ(settings.quickCreateShortcut.observerCount(), 0U);
    EXPECT_EQ(registrationsIn([&] { settings.setEnabled(false, "md"); }), 0);
}

TEST_F(DesktopCreationControllerTest, KeysAreGivenBackWhileOneIsRecordedWhateverIsSet) {
    controller.start();
    {
        const auto suspension = controller.suspendHotKeys();
        settings.setShortcut(commandJ, "md");
        mainQueue.run();
        EXPECT_THAT(hotKeys.registered, IsEmpty());
    }
    EXPECT_THAT(hotKeys.registeredIDs(), ElementsAre(1U, 100U));
}

TEST_F(DesktopCreationControllerTest, TellsWhichShortcutsCouldNotBeRegistered) {
    hotKeys.failures[{commandJ.keyCode, commandJ.carbonModifiers}] = eventHotKeyExistsErr;
    settings.setShortcut(commandJ, "md");
    controller.start();
    EXPECT_EQ(controller.hotKeyFailures().get(),
              (HotKeyFailures{.fileTypes = {{"md", eventHotKeyExistsErr}}}));
}

TEST_F(DesktopCreationControllerTest, TheMainWindowComesUpByTheActionIfThereIsOne) {
    windows.titles = {"Blankwell+"};
    controller.setOpenMainWindowAction([this] { events.push_back("open main window"); });
    controller.openMainWindow();
    EXPECT_THAT(events, ElementsAre("open main window", "activate"));
}

TEST_F(DesktopCreationControllerTest, WithoutTheActionTheMainWindowComesToTheFront) {
    windows.titles = {"Blankwell+", "Blankwell+ Help"};
    controller.openMainWindow();
    EXPECT_THAT(events, ElementsAre("front Blankwell+", "activate"));
}

TEST_F(DesktopCreationControllerTest, WithoutAMainWindowTheApplicationIsActivatedAllTheSame) {
    windows.titles = {"Blankwell+ Help"};
    controller.openMainWindow();
    EXPECT_THAT(events, ElementsAre("activate"));
}

TEST_F(DesktopCreationControllerTest, TheActionMayBeReplacedByTheWindowItOpens) {
    int opened = 0;
    controller.setOpenMainWindowAction([&, name = std::string(64, 'x')] {
        controller.setOpenMainWindowAction([&] { opened += 10; });
        opened += name.size() == 64 ? 1 : 0;
    });
    controller.openMainWindow();
    controller.openMainWindow();
    EXPECT_EQ(opened, 11);
}

} // namespace
} // namespace blankwell
