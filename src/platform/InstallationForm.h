#pragma once

namespace blankwell {

/// How the running program came here, as far as it matters to who may replace it.
enum class InstallationForm {
    /// A bundle that the user may replace.
    ownBundle,
    /// A bundle that the user may not replace.
    foreignBundle,
    /// Part of the system's packages.
    package,
    sandbox,
    /// No bundle at all.
    looseProgram,
};

} // namespace blankwell
