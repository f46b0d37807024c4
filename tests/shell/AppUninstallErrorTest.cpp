#include "shell/AppUninstallError.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

using NotPrepared = FileManagerScriptFailure::NotPrepared;
using Refused = FileManagerScriptFailure::Refused;

const FileUrl bundle{"/Applications/Blankwell+.app"};

std::string described(decltype(AppUninstallError::reason) reason) {
    return AppUninstallError{std::move(reason)}.description();
}

TEST(AppUninstallErrorTest, EachReasonHasItsText) {
    EXPECT_EQ(described(AppUninstallError::NotRunningFromAppBundle{FileUrl("/usr/bin")}),
              "Blankwell+ is not running from an application bundle: /usr/bin");
    EXPECT_EQ(described(AppUninstallError::TrashMoveFailed{
                  cocoaError(CocoaCode::fileWriteNoPermission, "Not permitted.")}),
              "macOS could not move Blankwell+ to the Trash: Not permitted.");
    EXPECT_EQ(described(AppUninstallError::TrashMoveFailed{}),
              "macOS did not report a Trash location for Blankwell+.");
    EXPECT_EQ(described(AppUninstallError::TrashMoveReportedNoResult{bundle}),
              "macOS finished the Trash request, but Blankwell+ is still at "
              "/Applications/Blankwell+.app.");
    EXPECT_EQ(described(AppUninstallError::AllTrashAttemptsFailed{{"one", "two", "three"}}),
              "Blankwell+ could not be moved to the Trash.\n\none\ntwo\nthree");
    EXPECT_EQ(described(AppUninstallError::AppleScriptFailed{"Busy."}), "Busy.");
    EXPECT_EQ(described(AppUninstallError::AppleScriptCreationFailed{}),
              "Blankwell+ could not prepare the Finder uninstall request.");
}

TEST(AppUninstallErrorTest, ARefusalIsToldInTheBestWordsThereAre) {
    EXPECT_EQ(uninstallError({Refused{"Described.", "Scripted."}}).description(), "Described.");
    EXPECT_EQ(uninstallError({Refused{std::nullopt, "Scripted."}}).description(), "Scripted.");
    EXPECT_EQ(uninstallError({Refused{}}).description(),
              "Finder could not move Blankwell+ to the Trash.");
    EXPECT_EQ(uninstallError({NotPrepared{}}),
              AppUninstallError{AppUninstallError::AppleScriptCreationFailed{}});
}

TEST(AppUninstallErrorTest, TheAlertTellsWhatHappenedAndWhatToDo) {
    const AlertContent expected{
        .style = AlertContent::Style::warning,
        .messageText = "Could not uninstall Blankwell+",
        .informativeText =
            "Busy.\n\nQuit Blankwell+, move the app to the Trash manually, then restart Finder to "
            "unload the Finder extension.",
    };
    EXPECT_EQ(uninstallFailedAlert("Busy."), expected);
}

} // namespace
} // namespace blankwell
