#pragma once

#include "platform/UpdateInstaller.h"
#include "platform/UpdateTransfers.h"

#include <memory>
#include <string>

namespace blankwell {

class BundleUse;

/// The adapters of updates, whose libraries for the web, for archives and for cryptography are
/// loaded when the first check begins and not before.
struct UpdateServices {
    std::unique_ptr<UpdateTransfers> transfers;
    std::unique_ptr<UpdateInstaller> installer;
};

/// The module's one entry: makes its services. `certificates` is the file of the certificates to
/// trust; empty: the system's. `running` must outlive the result.
using MakeUpdateServices = UpdateServices (*)(std::string certificates, const BundleUse& running);

/// The name that the entry has in the module.
inline constexpr auto makeUpdateServicesSymbol = "blankwellMakeUpdateServices";

} // namespace blankwell
