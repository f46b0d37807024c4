#pragma once

namespace blankwell {

class AppPresenceController;
class BlankwellSelfUpdater;
class DesktopCreationController;

/// Starts and stops the long-lived controllers with the application.
class AppDelegate {
public:
    /// All must outlive this object.
    struct Services {
        AppPresenceController& presence;
        BlankwellSelfUpdater& selfUpdater;
        DesktopCreationController& creation;
    };

    explicit AppDelegate(const Services& services) : services_(services) {}

    /// Shows the application first, then takes the hot keys. Called once, when the event loop is
    /// about to run.
    void applicationDidFinishLaunching();

    /// Gives the hot keys back first, so that none outlives what it would show, then removes the
    /// status item. Called however the application ends in an orderly way.
    void applicationWillTerminate();

private:
    Services services_;
};

} // namespace blankwell
