#pragma once

#include "base/FileUrl.h"
#include "platform/SystemError.h"

#include <expected>
#include <string_view>

namespace blankwell {

class FileSystem;

/// The first free name in `folder`: "BASE.EXT", else "BASE 2.EXT", "BASE 3.EXT" and so on, gaps
/// filled from the bottom, without an upper bound. Whether a name is free is for the file system to
/// say, so on a volume that ignores case `untitled.txt` takes `Untitled.txt`.
///
/// Errors: what the existence test answers other than "there" and "not there".
[[nodiscard]] std::expected<FileUrl, SystemError> uniqueFileUrl(const FileSystem& fileSystem,
                                                                const FileUrl& folder,
                                                                std::string_view baseName,
                                                                std::string_view fileExtension);

} // namespace blankwell
