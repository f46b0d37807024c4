#include "app/AppDelegate.h"

#include "quickcreate/DesktopCreationController.h"
#include "shell/AppPresenceController.h"
#include "shell/BlankwellSelfUpdater.h"

namespace blankwell {

void AppDelegate::applicationDidFinishLaunching() {
    services_.presence.start(&services_.selfUpdater);
    services_.creation.start();
}

void AppDelegate::applicationWillTerminate() {
    services_.creation.stop();
    services_.presence.stop();
}

} // namespace blankwell
