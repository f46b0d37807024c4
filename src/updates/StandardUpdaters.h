#pragma once

#include "updates/StandardUpdater.h"

#include <utility>

namespace blankwell {

/// Starts the updater of the running application.
class StandardUpdaters : public Updaters {
public:
    /// What the updater is given; must outlive it.
    explicit StandardUpdaters(StandardUpdater::Services services)
        : services_(std::move(services)) {}

    [[nodiscard]] std::unique_ptr<UpdaterController> start() override {
        return std::make_unique<StandardUpdater>(services_);
    }

private:
    StandardUpdater::Services services_;
};

} // namespace blankwell
