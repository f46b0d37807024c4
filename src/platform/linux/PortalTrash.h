#pragma once

#include "base/FileUrl.h"
#include "platform/SystemError.h"

#include <chrono>
#include <expected>
#include <stop_token>

namespace blankwell {

/// Lets the desktop's portal move the item at `url` to the Trash, and waits for its answer for
/// `patience` at the longest, or until `stop` is requested (`ECANCELED`). The portal is handed the
/// item itself, not its path; it follows links, so that a link is refused here.
[[nodiscard]] std::expected<void, SystemError> trashWithPortal(const FileUrl& url,
                                                               std::chrono::milliseconds patience,
                                                               const std::stop_token& stop);

} // namespace blankwell
