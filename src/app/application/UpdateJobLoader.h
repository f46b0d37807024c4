#pragma once

#include "app/services/UpdateServices.h"
#include "base/FileUrl.h"
#include "platform/UpdateFailure.h"
#include "updates/UpdateJob.h"

#include <expected>
#include <optional>
#include <string>

namespace blankwell {

class BundleUse;

/// Loads what does the work of updates, from the module beside the program, when it is first
/// needed.
class UpdateJobLoader {
public:
    /// `certificates` is the file of the certificates to trust; empty: the system's. `running` must
    /// outlive this object.
    UpdateJobLoader(FileUrl programFolder, std::string certificates, const BundleUse& running);

    /// The job, which lives as long as this object. Error: the module cannot be loaded.
    [[nodiscard]] std::expected<UpdateJob*, UpdateFailure> load();

private:
    FileUrl programFolder_;
    std::string certificates_;
    const BundleUse& running_;
    UpdateServices services_;
    std::optional<UpdateJob> job_;
};

} // namespace blankwell
