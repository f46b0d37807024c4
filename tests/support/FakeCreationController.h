#pragma once

#include "filetypes/CreationDestination.h"
#include "quickcreate/DesktopCreationController.h"
#include "quickcreate/QuickCreatePanels.h"
#include "settings/AppSettings.h"
#include "support/FakeHotKeyService.h"
#include "support/FakeRequestHandler.h"
#include "support/FakeWindows.h"

namespace blankwell {

/// Panels without content.
class FakeQuickCreatePanels : public QuickCreatePanels {
public:
    explicit FakeQuickCreatePanels(EventLog& events) : events_(events) {}

    std::unique_ptr<QuickCreatePanelWindow> make(const QuickCreatePanelConfiguration& configuration,
                                                 DesktopCreationController& controller) override {
        auto window = std::make_unique<FakeQuickCreatePanelWindow>(events_, configuration);
        last = window.get();
        lastController = &controller;
        ++made;
        return window;
    }

    FakeQuickCreatePanelWindow* last = nullptr;
    DesktopCreationController* lastController = nullptr;
    int made = 0;

private:
    EventLog& events_;
};

/// The real controller on doubles of the whole platform, outside of a sandbox; the Desktop of the
/// user `u` exists.
struct FakeCreationController : FakeRequestHandler {
    FakeCreationController() {
        environment.variables.clear();
        files.addFolder("/Users/u/Desktop");
    }

    /// What a controller that takes its keys from `keys` uses.
    DesktopCreationController::Services servicesWith(HotKeyService& keys) {
        return {
            .settings = settings,
            .destination = destination,
            .folderAccess = access,
            .panels = panels,
            .screens = screens,
            .windows = windows,
            .application = application,
            .workspace = workspace,
            .alert = alert,
            .order = order,
            .hotKeys = keys,
            .mainQueue = mainQueue,
            .log = log,
        };
    }

    FakeFrontFolder frontFolder;
    FakeHotKeyService hotKeys;
    FakeQuickCreatePanels panels{events};
    FakeScreens screens;
    FakeAppWindows windows{events};
    AppSettings settings{domains.group, log};
    CreationDestination destination{account, folders, frontFolder};
    DesktopCreationController controller{servicesWith(hotKeys)};
};

} // namespace blankwell
