#pragma once

#include "base/ObjectWillChange.h"
#include "base/Published.h"
#include "base/Subscription.h"
#include "shell/BlankwellSelfUpdateConfiguration.h"

#include <memory>
#include <optional>

namespace blankwell {

class Bundle;
class MainQueue;
class UpdaterController;
class Updaters;

/// The application's updates of itself, as far as the build has any.
///
/// A build with a usable configuration has a running updater from the start; any other has none,
/// and never can check. Belongs to the main thread.
class BlankwellSelfUpdater {
private:
    ObjectWillChange willChange_; // in front of the property, which announces through it

public:
    /// Reads the configuration and starts the updater. The ports must outlive this object, and
    /// `mainQueue` must take work from every thread that the updater reports from.
    BlankwellSelfUpdater(const Bundle& bundle, Updaters& updaters, MainQueue& mainQueue);
    ~BlankwellSelfUpdater();

    /// Whether a check may be asked for now. Follows the updater.
    Published<bool> canCheckForUpdates;

    /// Hears of each assignment to it before it takes effect.
    [[nodiscard]] ObjectWillChange& objectWillChange() { return willChange_; }

    [[nodiscard]] const BlankwellSelfUpdateConfiguration& configuration() const {
        return configuration_;
    }

    /// The updater, or nullptr where the configuration is not usable.
    [[nodiscard]] UpdaterController* updaterController() const { return updaterController_.get(); }

    /// What menus say of updates: whether a check may be asked for now, or nothing where the build
    /// has none.
    [[nodiscard]] std::optional<bool> stateForMenus() const;

    /// Has the updater check now; does nothing without one.
    void checkForUpdates();

private:
    void follow(MainQueue& mainQueue);

    BlankwellSelfUpdateConfiguration configuration_;
    std::unique_ptr<UpdaterController> updaterController_;
    /// What reports that wait in the queue are allowed to write to; gone with this object.
    std::shared_ptr<Published<bool>*> target_;
    Subscription canCheckForUpdatesObservation_;
};

} // namespace blankwell
