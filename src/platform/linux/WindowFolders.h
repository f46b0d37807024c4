#pragma once

#include "base/FileUrl.h"
#include "platform/WellKnownFolders.h"
#include "platform/linux/Deadline.h"
#include "platform/linux/FolderCandidates.h"
#include "platform/linux/FrontWindow.h"

#include <functional>
#include <optional>
#include <vector>

namespace blankwell {

/// Finds out which folders the windows of file managers show, each in the way that it tells. Starts
/// nothing. Folders that are not there do not count.
class WindowFolders {
public:
    /// `wellKnown` must outlive this object. `roots` is called when it is needed, for the folders
    /// that the user works in.
    WindowFolders(const WellKnownFolders& wellKnown, FileUrl home,
                  std::function<std::vector<FileUrl>()> roots);

    /// The folder in front in `window`; nothing where that is not known exactly.
    [[nodiscard]] std::optional<FileUrl> front(const FileManagerWindow& window,
                                               const Deadline& deadline) const;

    /// The folders that are open in `window`, of every tab that tells.
    [[nodiscard]] std::vector<FileUrl> all(const FileManagerWindow& window,
                                           const Deadline& deadline) const;

private:
    [[nodiscard]] std::optional<FileUrl> ask(const FileManagerWindow& front,
                                             const Deadline& deadline) const;
    [[nodiscard]] KnownFolders known() const;

    const WellKnownFolders& wellKnown_;
    FileUrl home_;
    std::function<std::vector<FileUrl>()> roots_;
};

} // namespace blankwell
