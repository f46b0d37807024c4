#pragma once

#include "base/FileUrl.h"
#include "platform/Alert.h"
#include "platform/SystemError.h"
#include "platform/Trash.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace blankwell {

/// Why the application could not be removed.
struct AppUninstallError {
    /// The program does not stand in a bundle that could be moved.
    struct NotRunningFromAppBundle {
        FileUrl bundle;

        friend bool operator==(const NotRunningFromAppBundle&,
                               const NotRunningFromAppBundle&) = default;
    };

    /// The desktop refused; without `underlying` it gave no reason.
    struct TrashMoveFailed {
        std::optional<SystemError> underlying;

        friend bool operator==(const TrashMoveFailed&, const TrashMoveFailed&) = default;
    };

    /// A service reported success, but the bundle is where it was.
    struct TrashMoveReportedNoResult {
        FileUrl bundle;

        friend bool operator==(const TrashMoveReportedNoResult&,
                               const TrashMoveReportedNoResult&) = default;
    };

    /// Every way failed: a line each, in the order they were tried.
    struct AllTrashAttemptsFailed {
        std::vector<std::string> lines;

        friend bool operator==(const AllTrashAttemptsFailed&,
                               const AllTrashAttemptsFailed&) = default;
    };

    /// The file manager refused, for the reason it gave.
    struct AppleScriptFailed {
        std::string message;

        friend bool operator==(const AppleScriptFailed&, const AppleScriptFailed&) = default;
    };

    /// The request to the file manager could not be put together.
    struct AppleScriptCreationFailed {
        friend bool operator==(const AppleScriptCreationFailed&,
                               const AppleScriptCreationFailed&) = default;
    };

    std::variant<NotRunningFromAppBundle, TrashMoveFailed, TrashMoveReportedNoResult,
                 AllTrashAttemptsFailed, AppleScriptFailed, AppleScriptCreationFailed>
        reason;

    /// The text for the user.
    [[nodiscard]] std::string description() const;

    friend bool operator==(const AppUninstallError&, const AppUninstallError&) = default;
};

/// What the user can do after any of the errors.
inline constexpr std::string_view uninstallRecoverySuggestion =
    "Quit Blankwell+, move the app to the Trash manually, then restart Finder to unload the Finder "
    "extension.";

/// What the file manager's refusal means for the user.
[[nodiscard]] AppUninstallError uninstallError(const FileManagerScriptFailure& failure);

/// What tells the user that the application is still there, why (in a complete text), and what to
/// do.
[[nodiscard]] AlertContent uninstallFailedAlert(std::string_view reason);

} // namespace blankwell
