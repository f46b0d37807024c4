#pragma once

#include "base/FileUrl.h"
#include "platform/linux/DirectoryHandler.h"

#include <optional>

namespace blankwell {

/// Starts `command` without an output, as nobody's child and in a session of its own: it is not
/// waited for, and ends neither with this process nor with its terminal. It begins in the folder
/// `in`, else in that of this process. False where there is no such program, or no such folder.
[[nodiscard]] bool startDetached(const Command& command,
                                 const std::optional<FileUrl>& in = std::nullopt);

} // namespace blankwell
