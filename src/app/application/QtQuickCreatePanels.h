#pragma once

#include "quickcreate/QuickCreatePanels.h"

namespace blankwell {

class AppSettings;
class MainQueue;
class QtApplication;
class Theme;

/// Makes the Quick Create panel out of its window and its view.
class QtQuickCreatePanels : public QuickCreatePanels {
public:
    /// What the panels use. All must outlive them.
    struct Services {
        QtApplication& application;
        AppSettings& settings;
        MainQueue& mainQueue;
        const Theme& theme;
    };

    explicit QtQuickCreatePanels(const Services& services) : services_(services) {}

    [[nodiscard]] std::unique_ptr<QuickCreatePanelWindow>
    make(const QuickCreatePanelConfiguration& configuration,
         DesktopCreationController& controller) override;

private:
    Services services_;
};

} // namespace blankwell
