#pragma once

#include "base/FileUrl.h"
#include "platform/linux/Accessible.h"
#include "platform/linux/Deadline.h"
#include "platform/linux/DesktopWindow.h"
#include "platform/linux/FolderTitles.h"

#include <optional>
#include <string_view>

namespace blankwell {

/// The folder that the location field or the path bar of one of `windows` shows: it exists, and is
/// called `name`, as the windows are titled. Nothing where there is none or more than one, where
/// the bar is hidden or being edited, and where a question gets no answer.
[[nodiscard]] std::optional<FileUrl> folderInAccessibleWindows(const Accessible::Children& windows,
                                                               std::string_view name,
                                                               const IsFolder& isFolder);

/// Asks the program of `window` for the folder that it shows, over the accessibility bus. `name` is
/// the folder's name by the window's title. Nothing where accessibility is off; starts nothing.
[[nodiscard]] std::optional<FileUrl> askAccessibleWindow(const DesktopWindow& window,
                                                         std::string_view name,
                                                         const IsFolder& isFolder,
                                                         const Deadline& deadline);

} // namespace blankwell
