#pragma once

#include "base/Subscription.h"
#include "settings/AppPresence.h"
#include "shell/StatusMenu.h"

#include <memory>
#include <vector>

namespace blankwell {

class AppSettings;
class ApplicationPresence;
class BlankwellSelfUpdater;
class DesktopCreationController;
class Environment;
class MainQueue;
class StatusBar;
class StatusItem;
class UninstallFlow;

/// Shows the application where the user wants it: in the task bar, as a status item, or both.
///
/// The status item is there exactly while the presence wants it, with a menu that is built anew
/// whenever something in it changes. Belongs to the main thread.
class AppPresenceController {
public:
    /// What the presence is made of. All must outlive the object.
    struct Services {
        AppSettings& settings;
        DesktopCreationController& creation;
        UninstallFlow& uninstaller;
        StatusBar& statusBar;
        ApplicationPresence& application;
        const Environment& environment;
        MainQueue& mainQueue;
    };

    explicit AppPresenceController(const Services& services);
    ~AppPresenceController();

    /// Applies the stored presence and follows its changes, and those of what the menu shows.
    /// `updater` must outlive the object or be nullptr. Called once. While user interface tests run
    /// (`BLANKWELL_UI_TESTING` is "1") there is no status item and nothing is followed.
    void start(BlankwellSelfUpdater* updater);

    void apply(AppPresence presence);

    /// Follows nothing any more and removes the status item.
    void stop();

    /// Does what an item of the menu stands for.
    void perform(const StatusMenuAction& action);

private:
    void run(StatusMenuCommand command);
    void setStatusItemVisible(bool visible);
    void rebuildMenu();
    void follow();

    Services services_;
    std::unique_ptr<StatusItem> statusItem_;
    BlankwellSelfUpdater* updater_ = nullptr;
    std::vector<Subscription> cancellables_;
};

} // namespace blankwell
