#pragma once

#include "platform/OpenPanel.h"

namespace blankwell {

/// The open panel of a program that has nobody to ask: `unavailable`, whatever is asked.
class NoOpenPanel : public OpenPanel {
public:
    [[nodiscard]] OpenPanelResult
    runModal(const OpenPanelConfiguration& /*configuration*/) override {
        return {.response = OpenPanelResult::Response::unavailable};
    }
};

} // namespace blankwell
