#pragma once

#include "shell/AppPresenceController.h"
#include "shell/BlankwellSelfUpdater.h"
#include "shell/UninstallFlow.h"
#include "support/FakeApplicationPresence.h"
#include "support/FakeCreationController.h"
#include "support/FakeStatusBar.h"
#include "support/FakeUpdaters.h"

#include <optional>

namespace blankwell {

/// An uninstaller that records being asked.
class FakeUninstallFlow : public UninstallFlow {
public:
    explicit FakeUninstallFlow(EventLog& events) : events_(events) {}

    void uninstall() override { events_.emplace_back("uninstall"); }

private:
    EventLog& events_;
};

/// The real presence controller on doubles of the whole platform, in a build that updates itself.
struct FakePresenceController : FakeCreationController {
    FakePresenceController() {
        bundle.info = {{"SUFeedURL", "https://example.org/appcast.xml"}, {"SUPublicEDKey", "key"}};
    }

    /// The updater of the bundle as it is at the first call.
    BlankwellSelfUpdater& updater() {
        if (!selfUpdater) {
            selfUpdater.emplace(bundle, updaters, mainQueue);
        }
        return *selfUpdater;
    }

    FakeUninstallFlow uninstaller{events};
    FakeStatusBar statusBar{events};
    FakeApplicationPresence applicationPresence{events};
    FakeUpdaters updaters;
    std::optional<BlankwellSelfUpdater> selfUpdater;
    AppPresenceController presence{{
        .settings = settings,
        .creation = controller,
        .uninstaller = uninstaller,
        .statusBar = statusBar,
        .application = applicationPresence,
        .environment = environment,
        .mainQueue = mainQueue,
    }};
};

} // namespace blankwell
