#pragma once

#include "quickcreate/QuickCreatePanels.h"

namespace blankwell {

class MainQueue;
class QtApplication;

/// Makes the Quick Create panel out of its window and its view.
class QtQuickCreatePanels : public QuickCreatePanels {
public:
    /// Both must outlive the panels.
    QtQuickCreatePanels(QtApplication& application, MainQueue& mainQueue)
        : application_(application), mainQueue_(mainQueue) {}

    [[nodiscard]] std::unique_ptr<QuickCreatePanelWindow>
    make(const QuickCreatePanelConfiguration& configuration,
         DesktopCreationController& controller) override;

private:
    QtApplication& application_;
    MainQueue& mainQueue_;
};

} // namespace blankwell
