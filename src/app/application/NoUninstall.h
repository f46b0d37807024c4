#pragma once

#include "platform/Alert.h"
#include "shell/UninstallFlow.h"

namespace blankwell {

/// Tells the user that the application cannot remove itself.
class NoUninstall : public UninstallFlow {
public:
    /// `alert` must outlive this object.
    explicit NoUninstall(Alert& alert) : alert_(alert) {}

    void uninstall() override {
        alert_.runModal({
            .style = AlertContent::Style::informational,
            .messageText = "Could not uninstall Blankwell+",
            .informativeText = "Remove it the way it was installed.",
        });
    }

private:
    Alert& alert_;
};

} // namespace blankwell
