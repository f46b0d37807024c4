#include "shell/AppUninstaller.h"

#include "support/FakeApplicationPresence.h"
#include "support/FakeCreationController.h"
#include "support/FakeFileManagers.h"
#include "support/FakeInstallationTraces.h"
#include "support/FakeTimer.h"
#include "support/FakeTrash.h"

#include <gmock/gmock.h>

#include <optional>

namespace blankwell {
namespace {

using namespace std::chrono_literals;
using testing::_;
using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

/// The real uninstaller of a program with hot keys and a panel, on doubles of the whole platform.
struct AppUninstallerTest : testing::Test, FakeCreationController {
    AppUninstallerTest() {
        files.addFolder(bundlePath);
        controller.start();
        controller.showQuickCreatePanel();
        mainQueue.run();
        events.clear();
        log.lines.clear();
    }

    AppUninstaller& uninstaller() {
        if (!made) {
            made.emplace(AppUninstaller::Services{
                .stop = [this]() -> std::expected<void, SystemError> {
                    if (failStoppingWith) {
                        return std::unexpected(*failStoppingWith);
                    }
                    controller.stop();
                    return {};
                },
                .alert = alert,
                .bundle = bundle,
                .fileSystem = files,
                .fileManagers = fileManagers,
                .trash = trash,
                .traces = traces,
                .application = application,
                .presence = presence,
                .mainQueue = mainQueue,
                .timer = timer,
                .log = log,
            });
        }
        return *made;
    }

    /// Confirms, and lets everything happen that follows without an answer or a pause.
    void uninstall() {
        uninstaller().uninstall();
        mainQueue.run();
    }

    void failEveryAttempt() {
        trash.failTrashingWith = cocoaError(CocoaCode::fileWriteUnknown, "No Trash here.");
        trash.failRecyclingWith = cocoaError(CocoaCode::fileWriteUnknown, "No portal.");
        trash.failDeletingWith = {FileManagerScriptFailure::Refused{"Nobody there.", {}}};
    }

    bool hasHotKeys() const { return controller.hasHotKeys(); }

    const std::string bundlePath = "/Applications/Blankwell+.app";
    FakeFileManagers fileManagers{events};
    FakeTrash trash{events, files};
    FakeInstallationTraces traces{events};
    FakeApplicationPresence presence{events};
    FakeTimer timer;
    std::optional<SystemError> failStoppingWith;
    std::optional<AppUninstaller> made;
};

TEST_F(AppUninstallerTest, AsksBeforeAnythingHappens) {
    alert.dismissesNext = true;
    uninstall();
    EXPECT_THAT(alert.shown,
                ElementsAre(AlertContent{
                    .style = AlertContent::Style::critical,
                    .messageText = "Uninstall Blankwell+?",
                    .informativeText =
                        "This will move Blankwell+ to the Trash, remove saved Blankwell+ settings, "
                        "and restart Finder so the Finder extension is unloaded.\n\nFiles you "
                        "created with Blankwell+ will not be removed.",
                    .buttons = {"Uninstall", "Cancel"},
                }));
    EXPECT_THAT(events, ElementsAre("alert Uninstall Blankwell+?"));
    EXPECT_TRUE(hasHotKeys());
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(AppUninstallerTest, StopsTheHotKeysAndHidesThePanelOnceItIsConfirmed) {
    uninstaller().uninstall();
    EXPECT_FALSE(hasHotKeys());
    EXPECT_EQ(events.back(), "hide panel");
    settings.quickCreateShortcut.set(defaultQuickCreateShortcut);
    mainQueue.run();
    EXPECT_FALSE(hasHotKeys());
}

TEST_F(AppUninstallerTest, RemovesTheBundleFirstAndThenItsTracesAndEnds) {
    trash.trashLocation = FileUrl("/Users/u/.Trash/Blankwell+.app");
    uninstall();
    EXPECT_THAT(events, ElementsAre("alert Uninstall Blankwell+?", "hide panel",
                                    "trash /Applications/Blankwell+.app", "remove registrations",
                                    "remove domain BLNKWLPLUS.app.blankwell.BlankwellPlus",
                                    "remove domain app.blankwell.BlankwellPlus",
                                    "remove container BLNKWLPLUS.app.blankwell.BlankwellPlus",
                                    "relaunch file managers", "terminate"));
    EXPECT_THAT(log.lines,
                ElementsAre(FakeLog::Line{LogLevel::notice, "Uninstaller",
                                          "Starting uninstall for /Applications/Blankwell+.app"},
                            FakeLog::Line{LogLevel::notice, "Uninstaller",
                                          "Moved Blankwell+ to Trash at "
                                          "/Users/u/.Trash/Blankwell+.app"}));
}

TEST_F(AppUninstallerTest, NothingButTheQuestionHappensWithinTheCall) {
    uninstaller().uninstall();
    EXPECT_THAT(events, Not(Contains(HasSubstr("trash"))));
}

TEST_F(AppUninstallerTest, NothingIsRemovedWhileTheApplicationCannotBeStopped) {
    failStoppingWith = SystemError{SystemError::Domain::posix, 16, "It does not quit."};
    uninstall();
    ASSERT_THAT(alert.shown, SizeIs(2));
    EXPECT_EQ(alert.shown[1].messageText, "Could not uninstall Blankwell+");
    EXPECT_THAT(alert.shown[1].informativeText, StartsWith("It does not quit.\n\nQuit Blankwell+"));
    EXPECT_THAT(events, Not(Contains(HasSubstr("trash"))));
    EXPECT_FALSE(uninstaller().isUnderWay());
}

TEST_F(AppUninstallerTest, IsUnderWayFromTheConsentToAFailure) {
    failEveryAttempt();
    EXPECT_FALSE(uninstaller().isUnderWay());
    uninstall();
    EXPECT_TRUE(uninstaller().isUnderWay());
    trash.answer();
    EXPECT_FALSE(uninstaller().isUnderWay());
}

TEST_F(AppUninstallerTest, WhatDoesNotRunFromABundleIsLeftAlone) {
    for (const auto* const path : {"/Applications/Blankwell+.App", "/usr/bin", "/x/.app"}) {
        made.reset();
        alert.shown.clear();
        events.clear();
        bundle.location = FileUrl(path);
        uninstall();
        ASSERT_THAT(alert.shown, SizeIs(2)) << path;
        EXPECT_EQ(alert.shown[1].messageText, "Could not uninstall Blankwell+");
        EXPECT_THAT(
            alert.shown[1].informativeText,
            StartsWith(std::string("Blankwell+ is not running from an application bundle: ") +
                       path + "\n\nQuit Blankwell+"));
        EXPECT_THAT(events, Not(Contains(HasSubstr("trash"))));
        EXPECT_FALSE(hasHotKeys());
    }
    EXPECT_TRUE(application.active);
}

TEST_F(AppUninstallerTest, WithoutAFileManagerNothingIsSaidAboutItAndNothingWaits) {
    uninstall();
    EXPECT_THAT(timer.delays, IsEmpty());
    EXPECT_THAT(log.lines, Each(Field(&FakeLog::Line::message, Not(HasSubstr("Finder")))));
}

TEST_F(AppUninstallerTest, WaitsUntilEveryFileManagerIsGone) {
    fileManagers.processes = {{.name = "a", .looksUntilGone = 2}, {.name = "b"}};
    uninstall();
    EXPECT_THAT(events, IsSupersetOf({"terminate a", "terminate b"}));
    EXPECT_TRUE(timer.ring());
    EXPECT_TRUE(files.isDirectory(FileUrl(bundlePath)));
    EXPECT_TRUE(timer.ring());
    EXPECT_FALSE(timer.ring());
    EXPECT_THAT(timer.delays, ElementsAre(100ms, 100ms));
    EXPECT_FALSE(files.isDirectory(FileUrl(bundlePath)));
    EXPECT_EQ(log.lines.at(1).message,
              "Terminating Finder to unload the Finder extension before uninstall");
    EXPECT_THAT(log.lines, SizeIs(3));
}

TEST_F(AppUninstallerTest, AFileManagerThatRefusesIsEndedWithoutAsking) {
    fileManagers.processes = {{.name = "a", .refusesToTerminate = true}, {.name = "b"}};
    uninstall();
    EXPECT_THAT(std::vector(events.begin() + 2, events.begin() + 5),
                ElementsAre("terminate a", "force a", "terminate b"));
}

TEST_F(AppUninstallerTest, AFileManagerThatStaysDoesNotStopTheUninstallation) {
    fileManagers.processes = {{.name = "a", .looksUntilGone = 1000}};
    uninstall();
    for (int pauses = 0; pauses < 19; ++pauses) {
        EXPECT_TRUE(timer.ring());
    }
    EXPECT_TRUE(files.isDirectory(FileUrl(bundlePath)));
    EXPECT_TRUE(timer.ring());
    EXPECT_FALSE(timer.ring());
    EXPECT_FALSE(files.isDirectory(FileUrl(bundlePath)));
    EXPECT_EQ(log.lines.at(2).message, "Finder did not terminate before uninstall continued");
}

TEST_F(AppUninstallerTest, AfterTheFileServicesSucceededNobodyElseIsAsked) {
    uninstall();
    EXPECT_FALSE(trash.answer());
    EXPECT_THAT(events, Not(Contains(HasSubstr("delete with file manager"))));
    // Where the Trash is was not reported, but the bundle is gone.
    EXPECT_EQ(log.lines.back().message,
              "Moved Blankwell+ to Trash at /Applications/Blankwell+.app");
}

TEST_F(AppUninstallerTest, TheDesktopIsAskedWhereTheFileServicesFail) {
    trash.failTrashingWith = cocoaError(CocoaCode::fileWriteUnknown, "No Trash here.");
    trash.recycleLocation = FileUrl("/Users/u/.Trash/B.app");
    uninstall();
    EXPECT_EQ(events.back(), "recycle /Applications/Blankwell+.app");
    EXPECT_TRUE(trash.answer());
    EXPECT_EQ(events.back(), "terminate");
    EXPECT_THAT(log.lines,
                ElementsAre(_,
                            FakeLog::Line{LogLevel::error, "Uninstaller",
                                          "FileManager trash attempt failed: No Trash here."},
                            Field(&FakeLog::Line::message,
                                  "Moved Blankwell+ to Trash at /Users/u/.Trash/B.app")));
}

TEST_F(AppUninstallerTest, TheFileManagerIsAskedLast) {
    failEveryAttempt();
    trash.failDeletingWith.reset();
    uninstall();
    trash.answer();
    EXPECT_EQ(events.back(), "terminate");
    EXPECT_EQ(log.lines.back().message,
              "Moved Blankwell+ to Trash at /Applications/Blankwell+.app");
}

TEST_F(AppUninstallerTest, AServiceThatMovedNothingHasFailed) {
    trash.onlySaysSo = true;
    uninstall();
    trash.answer();
    ASSERT_THAT(alert.shown, SizeIs(2));
    const std::string stillThere = "macOS finished the Trash request, but Blankwell+ is still at "
                                   "/Applications/Blankwell+.app.";
    EXPECT_THAT(
        alert.shown[1].informativeText,
        StartsWith("Blankwell+ could not be moved to the Trash.\n\nFileManager: " + stillThere +
                   "\nNSWorkspace: " + stillThere + "\nFinder: " + stillThere + "\n\n"));
}

TEST_F(AppUninstallerTest, WhereTheBundleCannotBeLookedAtItCountsAsStillThere) {
    files.failExistenceWith = cocoaError(CocoaCode::fileReadNoPermission, "No permission.");
    uninstall();
    EXPECT_EQ(events.back(), "recycle /Applications/Blankwell+.app");
}

TEST_F(AppUninstallerTest, WhenAllFailTheReasonsAreToldInOrderAndTheSettingsStay) {
    failEveryAttempt();
    uninstall();
    trash.answer();
    ASSERT_THAT(alert.shown, SizeIs(2));
    EXPECT_EQ(alert.shown[1].messageText, "Could not uninstall Blankwell+");
    EXPECT_EQ(alert.shown[1].informativeText,
              "Blankwell+ could not be moved to the Trash.\n\n"
              "FileManager: No Trash here.\n"
              "NSWorkspace: macOS could not move Blankwell+ to the Trash: No portal.\n"
              "Finder: Nobody there.\n\n"
              "Quit Blankwell+, move the app to the Trash manually, then restart Finder to unload "
              "the Finder extension.");
    EXPECT_THAT(
        std::vector(events.end() - 3, events.end()),
        ElementsAre("relaunch file managers", "activate", "alert Could not uninstall Blankwell+"));
    EXPECT_THAT(events, AllOf(Not(Contains(HasSubstr("remove"))), Not(Contains("terminate"))));
    EXPECT_FALSE(hasHotKeys());
}

TEST_F(AppUninstallerTest, WhileOneIsUnderWayAnotherWishChangesNothing) {
    failEveryAttempt();
    uninstall();
    uninstaller().uninstall();
    EXPECT_THAT(alert.shown, SizeIs(1));
    trash.answer();
    EXPECT_THAT(alert.shown, SizeIs(2));
}

TEST_F(AppUninstallerTest, AfterAFailureItCanBeTriedAgain) {
    failEveryAttempt();
    uninstall();
    trash.answer();
    trash.failTrashingWith.reset();
    uninstall();
    EXPECT_EQ(events.back(), "terminate");
    EXPECT_FALSE(files.isDirectory(FileUrl(bundlePath)));
}

} // namespace
} // namespace blankwell
