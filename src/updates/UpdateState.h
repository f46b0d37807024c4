#pragma once

#include "platform/UpdateTransfers.h"
#include "updates/Appcast.h"

#include <string>
#include <variant>

namespace blankwell {

/// The feed is being read.
struct CheckingForUpdate {
    friend bool operator==(const CheckingForUpdate&, const CheckingForUpdate&) = default;
};

/// There is a newer version, and the user is asked about it.
struct UpdateFound {
    AppcastItem item;
    bool isCritical = false;

    friend bool operator==(const UpdateFound&, const UpdateFound&) = default;
};

/// The running version is the newest.
struct NoUpdateFound {
    friend bool operator==(const NoUpdateFound&, const NoUpdateFound&) = default;
};

/// The archive is coming.
struct DownloadingUpdate {
    AppcastItem item;
    TransferProgress progress;

    friend bool operator==(const DownloadingUpdate&, const DownloadingUpdate&) = default;
};

/// The archive is being verified, unpacked and put in place.
struct InstallingUpdate {
    AppcastItem item;

    friend bool operator==(const InstallingUpdate&, const InstallingUpdate&) = default;
};

/// The new version is in place, and runs from the next start on.
struct UpdateReady {
    AppcastItem item;

    friend bool operator==(const UpdateReady&, const UpdateReady&) = default;
};

/// It did not work out. What runs is as it was.
struct UpdateFailed {
    /// Complete and user-facing.
    std::string description;

    friend bool operator==(const UpdateFailed&, const UpdateFailed&) = default;
};

/// Somebody else brings this copy up to date.
struct UpdatedElsewhere {
    /// Who does. Complete and user-facing.
    std::string description;

    friend bool operator==(const UpdatedElsewhere&, const UpdatedElsewhere&) = default;
};

/// How far an update has come, as the user sees it.
using UpdateState = std::variant<CheckingForUpdate, UpdateFound, NoUpdateFound, DownloadingUpdate,
                                 InstallingUpdate, UpdateReady, UpdateFailed, UpdatedElsewhere>;

/// What the user can answer.
enum class UpdateAnswer {
    install,
    skipVersion,
    /// Ends what is under way; of what was installed nothing is taken back.
    close,
    tryAgain,
    relaunch,
};

} // namespace blankwell
