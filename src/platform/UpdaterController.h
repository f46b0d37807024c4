#pragma once

#include "base/Subscription.h"

#include <functional>
#include <memory>

namespace blankwell {

/// A running updater of the application, which reads the feed and the key from the Info.plist on
/// its own. Destroying it stops it.
class UpdaterController {
public:
    virtual ~UpdaterController() = default;

    /// Whether a check may be asked for: not while a check or an update is in progress.
    [[nodiscard]] virtual bool canCheckForUpdates() const = 0;

    /// Calls `observer` at once and after every change of `canCheckForUpdates`, on whatever thread
    /// the change is made.
    virtual Subscription observeCanCheckForUpdates(std::function<void()> observer) = 0;

    /// Checks now, with windows that tell the user what comes of it.
    virtual void checkForUpdates() = 0;
};

/// Starts updaters.
class Updaters {
public:
    virtual ~Updaters() = default;

    /// A new updater, running already.
    [[nodiscard]] virtual std::unique_ptr<UpdaterController> start() = 0;
};

} // namespace blankwell
