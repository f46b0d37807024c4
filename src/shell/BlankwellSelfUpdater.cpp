#include "shell/BlankwellSelfUpdater.h"

#include "platform/MainQueue.h"
#include "platform/UpdaterController.h"

namespace blankwell {

BlankwellSelfUpdater::BlankwellSelfUpdater(const Bundle& bundle, Updaters& updaters,
                                           MainQueue& mainQueue)
    : canCheckForUpdates(willChange_, false),
      configuration_(BlankwellSelfUpdateConfiguration::fromInfo(bundle)),
      target_(std::make_shared<Published<bool>*>(&canCheckForUpdates)) {
    if (configuration_.isUsable()) {
        updaterController_ = updaters.start();
        follow(mainQueue);
    }
}

BlankwellSelfUpdater::~BlankwellSelfUpdater() = default;

std::optional<bool> BlankwellSelfUpdater::stateForMenus() const {
    return configuration_.isUsable() ? std::optional(canCheckForUpdates.get()) : std::nullopt;
}

void BlankwellSelfUpdater::checkForUpdates() {
    if (updaterController_) {
        updaterController_->checkForUpdates();
    }
}

void BlankwellSelfUpdater::follow(MainQueue& mainQueue) {
    canCheckForUpdatesObservation_ = updaterController_->observeCanCheckForUpdates(
        [&updater = *updaterController_, &mainQueue, weak = std::weak_ptr(target_)] {
            mainQueue.async([weak, can = updater.canCheckForUpdates()] {
                if (const auto target = weak.lock()) {
                    (*target)->set(can);
                }
            });
        });
}

} // namespace blankwell
