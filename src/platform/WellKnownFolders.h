#pragma once

#include "base/FileUrl.h"

#include <vector>

namespace blankwell {

/// Where this desktop keeps the folders that every user knows.
class WellKnownFolders {
public:
    virtual ~WellKnownFolders() = default;

    /// The Desktop folder of the user whose home is `home`. It need not exist.
    [[nodiscard]] virtual FileUrl desktop(const FileUrl& home) const = 0;

    /// The folders under which external volumes appear, the best to look in first. Never empty;
    /// `/Volumes` is always among them.
    [[nodiscard]] virtual std::vector<FileUrl> volumes() const = 0;
};

} // namespace blankwell
