#include "app/application/QtQuickCreatePanels.h"

#include "platform/qt/QtQuickCreatePanelWindow.h"
#include "quickcreate/QuickCreatePanelView.h"
#include "widgets/Metrics.h"

namespace blankwell {

std::unique_ptr<QuickCreatePanelWindow>
QtQuickCreatePanels::make(const QuickCreatePanelConfiguration& configuration,
                          DesktopCreationController& controller) {
    auto view = std::make_unique<QuickCreatePanelView>(QuickCreatePanelView::Services{
        .controller = controller,
        .settings = services_.settings,
        .mainQueue = services_.mainQueue,
        .theme = services_.theme,
    });
    return std::make_unique<QtQuickCreatePanelWindow>(configuration, std::move(view),
                                                      metrics::panelRadius, services_.application);
}

} // namespace blankwell
