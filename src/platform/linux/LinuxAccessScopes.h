#pragma once

#include "platform/AccessScopes.h"

#include <map>
#include <vector>

namespace blankwell {

/// The access that this process was given to folders. The kernel does not gate paths by it; whoever
/// writes must ask (see `ScopedFileSystem`).
///
/// URLs are the same when their standardized paths are. Belongs to the main thread.
class LinuxAccessScopes : public AccessScopes {
public:
    /// From now on `url` can be started: the user chose the folder, or a bookmark led to it.
    void admit(const FileUrl& url);

    /// True only for an admitted URL.
    [[nodiscard]] bool start(const FileUrl& url) override;

    /// Without a `start` that is still open, does nothing.
    void stop(const FileUrl& url) override;

    /// Whether an open scope covers `target`.
    [[nodiscard]] bool isOpen(const FileUrl& target) const;

    /// The standardized folders with open access that cover `target`.
    [[nodiscard]] std::vector<FileUrl> openFoldersCovering(const FileUrl& target) const;

private:
    /// The admitted folders, standardized, and how many starts of each are owed a stop.
    std::map<FileUrl, int> openings_;
};

} // namespace blankwell
