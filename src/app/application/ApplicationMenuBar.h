#pragma once

#include "app/ApplicationMenus.h"
#include "base/Subscription.h"

#include <QMenuBar>

namespace blankwell {

class ApplicationPresence;
class BlankwellHelpCommands;
class BlankwellSelfUpdater;
class MainQueue;
class UninstallFlow;

/// The application's menus in a window, which F10 opens. They are made anew whenever something in
/// them changes.
class ApplicationMenuBar : public QMenuBar {
    Q_OBJECT

public:
    /// What the commands do. All must outlive the object.
    struct Services {
        BlankwellSelfUpdater& updater;
        UninstallFlow& uninstaller;
        BlankwellHelpCommands& help;
        ApplicationPresence& application;
        MainQueue& mainQueue;
    };

    explicit ApplicationMenuBar(const Services& services, QWidget* parent = nullptr);

private:
    void rebuild();
    void perform(ApplicationCommand command);

    Services services_;
    Subscription updates_;
};

} // namespace blankwell
