#pragma once

#include <sys/types.h>

namespace blankwell {

/// How often the threads of `process` have given the processor back and waited so far.
[[nodiscard]] double waits(pid_t process);

/// The bytes of memory that `process` costs: what is its own, and its share of what others use too.
[[nodiscard]] double proportionalSize(pid_t process);

/// The bytes of memory that `process` has for its own data.
[[nodiscard]] double ownData(pid_t process);

} // namespace blankwell
