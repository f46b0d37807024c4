#pragma once

#include "platform/UpdateInstaller.h"

namespace blankwell {

class BundleUse;

/// Makes updates ready beside the running bundle and exchanges the two folders, in one step of the
/// file system.
class BundleInstaller : public UpdateInstaller {
public:
    /// `running` is the bundle to replace, and must outlive this object.
    explicit BundleInstaller(const BundleUse& running) : running_(running) {}

    [[nodiscard]] std::expected<std::unique_ptr<UpdateStaging>, UpdateFailure> begin() override;

private:
    const BundleUse& running_;
};

} // namespace blankwell
