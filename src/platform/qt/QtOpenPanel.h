#pragma once

#include "platform/OpenPanel.h"

namespace blankwell {

/// Qt's own folder dialog under the panel's message. It lets the user choose folders and nothing
/// else, and create or change none, whatever else the configuration allows.
///
/// Where nothing is selected, confirming chooses the folder that is shown. A folder whose name is
/// not UTF-8 cannot be chosen.
class QtOpenPanel : public OpenPanel {
public:
    [[nodiscard]] OpenPanelResult runModal(const OpenPanelConfiguration& configuration) override;
};

} // namespace blankwell
