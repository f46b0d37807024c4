#pragma once

#include "base/FileUrl.h"
#include "platform/SystemError.h"
#include "shell/FileManagerMenus.h"

#include <expected>
#include <optional>
#include <vector>

namespace blankwell {

/// The application's place on the user's desktop: its bundle, and what leads other programs to it.
/// Everything is in the user's own folders.
class Installation {
public:
    virtual ~Installation() = default;

    /// Copies the bundle into `folder`, or into the usual one, and registers the copy. Returns its
    /// place. Where the bundle stands there already it is only registered; so is, without `folder`,
    /// an installed bundle that was moved.
    virtual std::expected<FileUrl, SystemError> install(const std::optional<FileUrl>& folder) = 0;

    /// Takes away all that was registered: exactly what is on the list. Folders that were made for
    /// the bundle stay until it has gone.
    virtual std::expected<void, SystemError> unregister() = 0;

    [[nodiscard]] virtual std::vector<FileManagerMenuState> menuStates() = 0;

    /// As `FileManagerMenus::turn`.
    virtual std::expected<void, SystemError> turnMenu(FileManager manager, bool on) = 0;
};

} // namespace blankwell
