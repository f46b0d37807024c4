#include "app/BlankwellHelpCommands.h"

#include "app/WindowScenes.h"
#include "platform/Application.h"
#include "settings/AppSettings.h"

namespace blankwell {

void BlankwellHelpCommands::showHelp() {
    openWindow_(helpWindowScene.id);
    application_.activate();
}

void BlankwellHelpCommands::showWelcomeWalkthrough() {
    openWindow_(mainWindowScene.id);
    settings_.hasCompletedOnboarding.set(false);
    application_.activate();
}

} // namespace blankwell
