#pragma once

#include "platform/QuickCreatePanelWindow.h"

#include <memory>

namespace blankwell {

class DesktopCreationController;

/// Makes the panel in which the user chooses what to create.
class QuickCreatePanels {
public:
    virtual ~QuickCreatePanels() = default;

    /// A hidden panel as configured, whose content shows the state of `controller` and calls its
    /// operations. The controller owns the panel and outlives it.
    [[nodiscard]] virtual std::unique_ptr<QuickCreatePanelWindow>
    make(const QuickCreatePanelConfiguration& configuration,
         DesktopCreationController& controller) = 0;
};

} // namespace blankwell
