#pragma once

#include "platform/SystemError.h"

#include <expected>

namespace blankwell {

/// Removes the application from the machine, for a program that waits until it is gone.
class Uninstallation {
public:
    /// The user's, to the removal.
    enum class Consent {
        /// Still to be asked for.
        wanted,
        given,
    };

    enum class Ending {
        removed,
        /// The user did not want it: nothing has changed.
        declined,
        /// It began and did not work, as the user was told.
        failed,
    };

    virtual ~Uninstallation() = default;

    /// Ends the application where it runs, and does what `AppUninstaller` does. Error: it does not
    /// even begin, since others have to remove this program or nobody can be asked.
    virtual std::expected<Ending, SystemError> run(Consent consent) = 0;
};

} // namespace blankwell
