#include "app/application/ApplicationMenuBar.h"

#include "app/BlankwellHelpCommands.h"
#include "platform/ApplicationPresence.h"
#include "platform/ObserveLater.h"
#include "platform/qt/QtMenu.h"
#include "shell/BlankwellSelfUpdater.h"
#include "shell/UninstallFlow.h"
#include "widgets/Symbols.h"

#include <QShortcut>

namespace blankwell {

ApplicationMenuBar::ApplicationMenuBar(const Services& services, QWidget* parent)
    : QMenuBar(parent),
      services_(services),
      updates_(observeLater(services_.updater.objectWillChange(), services_.mainQueue,
                            [this] { rebuild(); })) {
    connect(new QShortcut(Qt::Key_F10, this), &QShortcut::activated, this,
            [this] { setActiveAction(actions().value(0)); });
    rebuild();
}

void ApplicationMenuBar::rebuild() {
    const auto menus = makeApplicationMenus(services_.updater.stateForMenus());
    const auto deeds = withActions<ApplicationCommand>(
        Menu<ApplicationCommand>(menus.begin(), menus.end()),
        [this](ApplicationCommand command) { return [this, command] { perform(command); }; });
    fillMenuBar(*this, deeds, services_.mainQueue, symbolIcon);
}

void ApplicationMenuBar::perform(ApplicationCommand command) {
    switch (command) {
    case ApplicationCommand::checkForUpdates:
        services_.updater.checkForUpdates();
        break;
    case ApplicationCommand::uninstall:
        services_.uninstaller.uninstall();
        break;
    case ApplicationCommand::quit:
        services_.application.terminate();
        break;
    case ApplicationCommand::showHelp:
        services_.help.showHelp();
        break;
    case ApplicationCommand::showWelcomeWalkthrough:
        services_.help.showWelcomeWalkthrough();
        break;
    }
}

} // namespace blankwell
