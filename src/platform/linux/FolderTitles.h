#pragma once

#include "base/FileUrl.h"

#include <functional>
#include <optional>
#include <string_view>

namespace blankwell {

/// Tells whether a folder stands at a place.
using IsFolder = std::function<bool(const FileUrl&)>;

/// The folder whose path a Thunar window's title holds, as it does with the setting
/// `misc-full-path-in-window-title` ("PATH - Thunar"). Nothing for a bare name.
[[nodiscard]] std::optional<FileUrl> folderInThunarTitle(std::string_view title,
                                                         const IsFolder& isFolder);

/// The folder's name in a Thunar window's title, which ends with the program's.
[[nodiscard]] std::string_view nameInThunarTitle(std::string_view title);

/// The folder whose path a Nemo window's title holds, as it does with the setting
/// `show-full-path-titles` ("NAME - PATH"). Nothing for a bare name.
[[nodiscard]] std::optional<FileUrl> folderInNemoTitle(std::string_view title,
                                                       const IsFolder& isFolder);

/// A Dolphin window's title without the name of the program that the toolkit puts at the end: the
/// name of the folder, or its path with the setting `ShowFullPathInTitlebar`.
[[nodiscard]] std::string_view captionOfDolphinTitle(std::string_view title);

} // namespace blankwell
