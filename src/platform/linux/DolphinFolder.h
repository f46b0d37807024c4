#pragma once

#include "base/FileUrl.h"
#include "platform/linux/Deadline.h"
#include "platform/linux/DesktopWindow.h"
#include "platform/linux/FolderCandidates.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

/// A Dolphin window on the bus.
struct DolphinObject {
    std::string busName;
    std::string path;

    friend bool operator==(const DolphinObject&, const DolphinObject&) = default;
};

/// Where `window` stands on the bus; nothing if it does not say.
[[nodiscard]] std::optional<DolphinObject> dolphinObject(const DesktopWindow& window);

/// What a Dolphin window is asked. Each gives nothing where no answer comes.
struct DolphinQuestions {
    /// Whether a tab, or a half of a split one, shows the folder.
    std::function<std::optional<bool>(const FileUrl& folder)> isOpen;
    /// Whether the command of this name can be chosen now.
    std::function<std::optional<bool>(const std::string& action)> isEnabled;
    /// Whether this user may write in the folder. Not asked of Dolphin.
    std::function<bool(const FileUrl& folder)> isWritable;
};

/// The folder in front in a window captioned `caption`, told by asking: Dolphin names no folder, it
/// only confirms one. So an answer is given only where what is open must be what is in front:
/// - a caption that is a path, and is open;
/// - the one of `candidates` that is open, if there are no other tabs and no other half of a split
///   tab that could be it. Dolphin offers to move files to the other half where that is writable;
///   where it does not, a folder that is writable is not the other half.
///
/// So nothing for a folder that is not among `candidates`, for several tabs without paths in the
/// captions, and for a search.
[[nodiscard]] std::optional<FileUrl> folderInDolphinWindow(std::string_view caption,
                                                           const std::vector<FileUrl>& candidates,
                                                           const DolphinQuestions& dolphin);

/// Asks the running Dolphin for the folder in front in `window`, which is looked for in `known`.
[[nodiscard]] std::optional<FileUrl>
askDolphin(const DesktopWindow& window, const KnownFolders& known, const Deadline& deadline);

/// The folders that are open in a window captioned `caption`, in any tab: the one that the caption
/// names, and those of `candidates`, the likeliest last, since Dolphin brings the last of the
/// folders that it is started with to the front. A tab that shows none of these is not known of.
[[nodiscard]] std::vector<FileUrl> foldersInDolphinWindow(std::string_view caption,
                                                          const std::vector<FileUrl>& candidates,
                                                          const DolphinQuestions& dolphin);

/// Asks the running Dolphin for the folders in all tabs of `window`, which are looked for in
/// `known`.
[[nodiscard]] std::vector<FileUrl>
askDolphinForTabs(const DesktopWindow& window, const KnownFolders& known, const Deadline& deadline);

} // namespace blankwell
