#pragma once

#include "base/FileUrl.h"
#include "platform/Trash.h"

#include <chrono>
#include <expected>

namespace blankwell {

/// How long a file manager that moves an item to the Trash is waited for.
struct FileManagerTrashPatience {
    /// Until it has answered; one that the session has to start takes its time.
    std::chrono::milliseconds answer{10'000};
    /// From then on until the item is gone: they answer before they move it.
    std::chrono::milliseconds removal{3'000};
};

/// Lets a file manager move the item at `url` to the Trash: Nautilus or Thunar, whichever runs,
/// else whichever the session can start; the others take no such request. They do not tell of a
/// failure but ask the user, who may delete for good. So what no Trash takes is refused here.
[[nodiscard]] std::expected<void, FileManagerScriptFailure>
trashWithFileManager(const FileUrl& url, FileManagerTrashPatience patience);

} // namespace blankwell
