#pragma once

#include <string>

namespace blankwell {

/// The running kernel's version, as updates can demand it; empty where it is not known.
[[nodiscard]] std::string runningSystemVersion();

} // namespace blankwell
