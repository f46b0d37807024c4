#pragma once

#include "base/FileUrl.h"
#include "platform/SystemError.h"

#include <expected>

namespace blankwell {

/// Moves the item at `url`, of a link the link itself, to the user's Trash or to that of the item's
/// volume. Fails for volumes that have none, such as one in memory.
[[nodiscard]] std::expected<void, SystemError> trashWithGio(const FileUrl& url);

/// Whether there is an item at `url` that a Trash takes from there; the error says why not.
[[nodiscard]] std::expected<void, SystemError> checkTrashTakes(const FileUrl& url);

} // namespace blankwell
