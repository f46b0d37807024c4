#pragma once

#include "base/FileUrl.h"

#include <string_view>
#include <vector>

namespace blankwell {

/// Where a user's folders are likely to stand.
struct KnownFolders {
    FileUrl home;
    /// Folders that are likely themselves, and whose folders are.
    std::vector<FileUrl> favourites;
    /// The folders under which volumes appear.
    std::vector<FileUrl> volumes;
};

/// The folders that a window captioned `name` may show, likely ones first, each once: folders of
/// that name in `known` and one level below, then those of `known` themselves, whose captions a
/// file manager may translate. Looks at a bounded number of folders.
[[nodiscard]] std::vector<FileUrl> folderCandidates(std::string_view name,
                                                    const KnownFolders& known);

} // namespace blankwell
