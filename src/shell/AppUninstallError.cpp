#include "shell/AppUninstallError.h"

#include "base/Overloaded.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

namespace blankwell {

std::string AppUninstallError::description() const {
    return std::visit(
        Overloaded{
            [](const NotRunningFromAppBundle& error) {
                return fmt::format("Blankwell+ is not running from an application bundle: {}",
                                   error.bundle.path());
            },
            [](const TrashMoveFailed& error) -> std::string {
                if (!error.underlying) {
                    return "macOS did not report a Trash location for Blankwell+.";
                }
                return fmt::format("macOS could not move Blankwell+ to the Trash: {}",
                                   error.underlying->description);
            },
            [](const TrashMoveReportedNoResult& error) {
                return fmt::format(
                    "macOS finished the Trash request, but Blankwell+ is still at {}.",
                    error.bundle.path());
            },
            [](const AllTrashAttemptsFailed& error) {
                return fmt::format("Blankwell+ could not be moved to the Trash.\n\n{}",
                                   fmt::join(error.lines, "\n"));
            },
            [](const AppleScriptFailed& error) { return error.message; },
            [](const AppleScriptCreationFailed&) -> std::string {
                return "Blankwell+ could not prepare the Finder uninstall request.";
            },
        },
        reason);
}

AppUninstallError uninstallError(const FileManagerScriptFailure& failure) {
    return std::visit(
        Overloaded{
            [](const FileManagerScriptFailure::NotPrepared&) {
                return AppUninstallError{AppUninstallError::AppleScriptCreationFailed{}};
            },
            [](const FileManagerScriptFailure::Refused& refused) {
                constexpr auto withoutWords = "Finder could not move Blankwell+ to the Trash.";
                return AppUninstallError{
                    AppUninstallError::AppleScriptFailed{refused.localizedDescription.value_or(
                        refused.scriptErrorMessage.value_or(withoutWords))}};
            },
        },
        failure.reason);
}

AlertContent uninstallFailedAlert(std::string_view reason) {
    return {
        .style = AlertContent::Style::warning,
        .messageText = "Could not uninstall Blankwell+",
        .informativeText = fmt::format("{}\n\n{}", reason, uninstallRecoverySuggestion),
    };
}

} // namespace blankwell
