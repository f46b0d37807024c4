#pragma once

#include "platform/SystemError.h"

#include <string_view>

namespace blankwell {

/// The `SystemError` of a failed system call: `what` could not be done, for the reason that
/// `number` (an `errno` value) names. The description is "`what`: `reason`".
[[nodiscard]] SystemError posixError(int number, std::string_view what);

} // namespace blankwell
