#pragma once

#include "base/FileUrl.h"
#include "platform/SystemError.h"

#include <optional>

namespace blankwell {

// What keeps a bookmark from being made or resolved, in words for the user. Each names the folder
// by the last component of its path.

[[nodiscard]] SystemError unreadableBookmark();
[[nodiscard]] SystemError folderIsGone(const FileUrl& folder);
[[nodiscard]] SystemError folderWasReplaced(const FileUrl& folder);
[[nodiscard]] SystemError volumeNotMounted(const FileUrl& folder);

/// The error of a system call that failed with `number` at `folder`.
[[nodiscard]] SystemError folderError(const FileUrl& folder, int number);

/// Why this process cannot search `folder` and make files in it; nothing if it can.
[[nodiscard]] std::optional<SystemError> refusalToWriteIn(const FileUrl& folder);

/// Why this process cannot search `folder`; nothing if it can.
[[nodiscard]] std::optional<SystemError> refusalToSearch(const FileUrl& folder);

} // namespace blankwell
