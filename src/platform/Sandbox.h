#pragma once

namespace blankwell {

class Environment;

/// Whether the process runs in the application's sandbox, which its container's identifier in the
/// environment tells, whatever its value.
[[nodiscard]] bool isSandboxed(const Environment& environment);

} // namespace blankwell
