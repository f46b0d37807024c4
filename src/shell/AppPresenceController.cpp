#include "shell/AppPresenceController.h"

#include "base/Overloaded.h"
#include "platform/ApplicationPresence.h"
#include "platform/Environment.h"
#include "platform/ObserveLater.h"
#include "platform/StatusBar.h"
#include "quickcreate/DesktopCreationController.h"
#include "settings/AppSettings.h"
#include "shell/BlankwellSelfUpdater.h"
#include "shell/StatusIcon.h"
#include "shell/UninstallFlow.h"

#include <functional>
#include <optional>
#include <utility>

namespace blankwell {
namespace {

constexpr Points statusItemLength = 26;

StatusItemConfiguration statusItemConfiguration() {
    return {
        .length = statusItemLength,
        .image = statusIcon(),
        .imageScaling = StatusItemConfiguration::ImageScaling::proportionallyDown,
        .imagePosition = StatusItemConfiguration::ImagePosition::imageOnly,
        .toolTip = "Blankwell+",
    };
}

std::optional<bool> updateState(const BlankwellSelfUpdater* updater) {
    return updater == nullptr ? std::nullopt : updater->stateForMenus();
}

} // namespace

AppPresenceController::AppPresenceController(const Services& services) : services_(services) {}

AppPresenceController::~AppPresenceController() = default;

void AppPresenceController::start(BlankwellSelfUpdater* updater) {
    if (services_.environment.variable("BLANKWELL_UI_TESTING") == "1") {
        setStatusItemVisible(false);
        services_.application.setActivationPolicy(ActivationPolicy::regular);
        return;
    }
    updater_ = updater;
    apply(services_.settings.appPresence.get());
    follow();
}

void AppPresenceController::apply(AppPresence presence) {
    setStatusItemVisible(showsStatusItem(presence));
    services_.application.setActivationPolicy(isAccessory(presence) ? ActivationPolicy::accessory
                                                                    : ActivationPolicy::regular);
}

void AppPresenceController::stop() {
    cancellables_.clear();
    updater_ = nullptr;
    setStatusItemVisible(false);
}

void AppPresenceController::perform(const StatusMenuAction& action) {
    std::visit(Overloaded{
                   [this](StatusMenuCommand command) { run(command); },
                   [this](const FileCreationMenuAction& creation) {
                       const bool onDesktop =
                           creation.destination == CreationDestinationMode::desktop;
                       services_.creation.create(creation.type,
                                                 onDesktop ? DestinationChoice::desktop
                                                           : DestinationChoice::frontFinderFolder);
                   },
               },
               action);
}

void AppPresenceController::run(StatusMenuCommand command) {
    switch (command) {
    case StatusMenuCommand::showQuickCreate:
        services_.creation.showQuickCreatePanel();
        break;
    case StatusMenuCommand::openMainWindow:
        services_.creation.openMainWindow();
        break;
    case StatusMenuCommand::checkForUpdates:
        if (updater_ != nullptr) {
            updater_->checkForUpdates();
        }
        break;
    case StatusMenuCommand::uninstall:
        services_.uninstaller.uninstall();
        break;
    case StatusMenuCommand::quit:
        services_.application.terminate();
        break;
    }
}

void AppPresenceController::setStatusItemVisible(bool visible) {
    if (!visible) {
        statusItem_.reset();
        return;
    }
    if (!statusItem_) {
        statusItem_ = services_.statusBar.makeItem(statusItemConfiguration());
    }
    rebuildMenu();
}

void AppPresenceController::rebuildMenu() {
    if (!statusItem_) {
        return;
    }
    auto menu = makeStatusMenu(services_.settings.enabledFileTypes(), updateState(updater_));
    statusItem_->setMenu(withActions<StatusMenuAction>(
        std::move(menu), [this](StatusMenuAction action) -> std::function<void()> {
            return [this, action = std::move(action)] { perform(action); };
        }));
}

void AppPresenceController::follow() {
    auto& queue = services_.mainQueue;
    auto& settings = services_.settings;
    const auto rebuild = [this](const auto&...) { rebuildMenu(); };
    cancellables_.push_back(observeLater(settings.appPresence, queue,
                                         [this](AppPresence presence) { apply(presence); }));
    cancellables_.push_back(observeLater(settings.enabledFileTypeIDs, queue, rebuild));
    cancellables_.push_back(observeLater(settings.fileTypeOrder, queue, rebuild));
    if (updater_ != nullptr) {
        cancellables_.push_back(observeLater(updater_->objectWillChange(), queue, rebuild));
    }
}

} // namespace blankwell
