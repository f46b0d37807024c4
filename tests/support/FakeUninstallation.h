#pragma once

#include "shell/Uninstallation.h"

#include <optional>
#include <vector>

namespace blankwell {

/// An uninstallation that ends as the test says.
class FakeUninstallation : public Uninstallation {
public:
    std::expected<Ending, SystemError> run(Consent consent) override {
        consents.push_back(consent);
        if (refuseWith) {
            return std::unexpected(*refuseWith);
        }
        return ending;
    }

    /// Those it was run with.
    std::vector<Consent> consents;
    Ending ending = Ending::removed;
    std::optional<SystemError> refuseWith;
};

} // namespace blankwell
