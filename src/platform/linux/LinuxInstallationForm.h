#pragma once

#include "base/FileUrl.h"
#include "platform/InstallationForm.h"

namespace blankwell {

class Environment;

/// How the program that runs from `bundle` came here: by the sandbox's mark, the folders that
/// belong to the system's packages, the form of a bundle, and the user's right to exchange it.
[[nodiscard]] InstallationForm installationForm(const FileUrl& bundle,
                                                const Environment& environment);

} // namespace blankwell
