#pragma once

#include "base/FileUrl.h"
#include "platform/InstallationForm.h"

#include <string>

namespace blankwell {

class Environment;

/// The bundle that the programs in `programFolder` belong to, if it is one.
[[nodiscard]] FileUrl bundleOfPrograms(const FileUrl& programFolder);

/// How the program that runs from `bundle` came here: by the sandbox's mark, the folders that
/// belong to the system's packages, the form of a bundle, and the user's right to exchange it.
[[nodiscard]] InstallationForm installationOf(const FileUrl& bundle,
                                              const Environment& environment);

/// The running kernel's version, as updates can demand it; empty where it is not known.
[[nodiscard]] std::string runningSystemVersion();

} // namespace blankwell
