#pragma once

#include "platform/SystemError.h"

#include <string_view>

namespace blankwell {

/// The `SystemError` of a failed system call: `what` could not be done, for the reason that
/// `number` (an `errno` value) names. The description is "`what`: `reason`.".
[[nodiscard]] SystemError posixError(int number, std::string_view what);

/// As `posixError`, with the Cocoa code where the file services have one for this reason: no such
/// file, no permission, a full disk, a read-only volume, a name that is taken.
[[nodiscard]] SystemError fileError(int number, std::string_view what);

} // namespace blankwell
