#pragma once

#include <string>

namespace blankwell {

/// Why a step of an update failed. Nothing of the installed application has changed.
struct UpdateFailure {
    enum class Reason {
        /// Somebody asked it to stop.
        cancelled,
        /// An address or a redirection that is not HTTPS, or a server that is not trusted.
        insecure,
        /// The server cannot be reached, or breaks off.
        unreachable,
        /// The server answers with something else than what was asked for.
        refused,
        /// More bytes than allowed or announced.
        tooLarge,
        /// Fewer bytes than announced.
        truncated,
        /// Longer than allowed.
        tooSlow,
        /// The archive is not signed with the application's key.
        wrongSignature,
        /// The archive is damaged, or holds what no bundle has.
        unsafeArchive,
        /// The archive holds another program, another key or a version that is not newer.
        wrongBundle,
        /// The disk: full, not writable, or the like.
        disk,
    };

    Reason reason;
    /// Complete and user-facing, shown and logged as it is.
    std::string description;

    friend bool operator==(const UpdateFailure&, const UpdateFailure&) = default;
};

} // namespace blankwell
