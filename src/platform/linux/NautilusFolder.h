#pragma once

#include "base/FileUrl.h"
#include "platform/linux/BusMessage.h"
#include "platform/linux/Deadline.h"
#include "platform/linux/DesktopWindow.h"

#include <optional>
#include <vector>

namespace blankwell {

/// The folder in front in `window`, by what Nautilus says is open: the URIs of the tabs of each
/// window, by the window's object path. Of several tabs it is the one called as the window is
/// titled. Nothing where none or more than one is, and for what is no folder on a disk (the Trash,
/// a search, a server).
[[nodiscard]] std::optional<FileUrl>
folderInNautilusWindow(const DesktopWindow& window, const BusMessage::StringLists& openWindows);

/// Asks the running Nautilus for the folder in front in `window`; starts nothing.
[[nodiscard]] std::optional<FileUrl> askNautilus(const DesktopWindow& window,
                                                 const Deadline& deadline);

/// The folders that the tabs of `window` show, in their order, by what Nautilus says is open.
[[nodiscard]] std::vector<FileUrl>
foldersInNautilusWindow(const DesktopWindow& window, const BusMessage::StringLists& openWindows);

/// Asks the running Nautilus for the folders of all tabs of `window`; starts nothing.
[[nodiscard]] std::vector<FileUrl> askNautilusForTabs(const DesktopWindow& window,
                                                      const Deadline& deadline);

} // namespace blankwell
