#include "app/application/QtQuickCreatePanels.h"

#include "platform/qt/QtQuickCreatePanelWindow.h"
#include "quickcreate/QuickCreatePanelView.h"
#include "widgets/Symbols.h"

namespace blankwell {

std::unique_ptr<QuickCreatePanelWindow>
QtQuickCreatePanels::make(const QuickCreatePanelConfiguration& configuration,
                          DesktopCreationController& controller) {
    auto view = std::make_unique<QuickCreatePanelView>(controller, mainQueue_, symbolIcon);
    return std::make_unique<QtQuickCreatePanelWindow>(configuration, std::move(view), application_);
}

} // namespace blankwell
