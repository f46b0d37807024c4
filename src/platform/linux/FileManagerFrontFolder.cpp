#include "platform/linux/FileManagerFrontFolder.h"

#include "platform/linux/X11WindowList.h"

#include <utility>

namespace blankwell {
namespace {

constexpr std::chrono::milliseconds patience{300};

} // namespace

FileManagerFrontFolder::FileManagerFrontFolder(const WellKnownFolders& wellKnown, FileUrl home,
                                               std::function<std::vector<FileUrl>()> roots)
    : folders_(wellKnown, std::move(home), std::move(roots)) {}

std::optional<std::string> FileManagerFrontFolder::path() {
    const Deadline deadline(patience);
    const auto stack = x11WindowStack(deadline);
    if (!stack) {
        return std::nullopt;
    }
    const auto front = frontWindow(*stack);
    if (!front) {
        return "";
    }
    const auto folder = folders_.front(*front, deadline);
    return folder ? std::optional(folder->path()) : std::nullopt;
}

} // namespace blankwell
