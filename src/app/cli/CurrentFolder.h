#pragma once

#include "base/FileUrl.h"

#include <optional>

namespace blankwell {
class Environment;
} // namespace blankwell

namespace blankwell::cli {

/// The folder that relative paths begin at, by the path on which the user came there: `PWD` where
/// it leads to the current folder (links in it are kept, as the shell shows them), else the
/// folder's own path. Nothing where the current folder was deleted.
[[nodiscard]] std::optional<FileUrl> currentFolder(const Environment& environment);

} // namespace blankwell::cli
