#include "platform/linux/DolphinFolder.h"

#include "base/FileUri.h"
#include "platform/linux/FolderTitles.h"
#include "platform/linux/SessionBus.h"

#include <fmt/core.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

namespace blankwell {
namespace {

/// Enabled where there are at least two tabs.
constexpr auto nextTab = "activate_next_tab";
/// Enabled where a split tab's other half is writable.
constexpr auto moveToOtherHalf = "move_to_inactive_split_view";

/// One running Dolphin window, asked over the bus until a deadline.
class DolphinWindow {
public:
    DolphinWindow(SessionBus& bus, DolphinObject object, const Deadline& deadline)
        : bus_(bus), object_(std::move(object)), deadline_(deadline) {}

    /// Dolphin compares as text with the URL it was opened by, which may end with a slash.
    std::optional<bool> isOpen(const FileUrl& folder) {
        const auto uri = fileUri(folder);
        const auto plain = ask("org.kde.dolphin.MainWindow", "isUrlOpen", uri);
        if (plain != false || uri.ends_with('/')) {
            return plain;
        }
        return ask("org.kde.dolphin.MainWindow", "isUrlOpen", uri + '/');
    }

    std::optional<bool> isEnabled(const std::string& action) {
        return ask("org.kde.KMainWindow", "actionIsEnabled", action);
    }

private:
    std::optional<bool> ask(const char* interface, const char* member,
                            const std::string& argument) {
        auto request = bus_.request({object_.busName, object_.path, interface, member});
        if (!request) {
            return std::nullopt;
        }
        request->append(argument);
        auto answer = bus_.call(*request, deadline_);
        return answer ? answer->readBool() : std::nullopt;
    }

    SessionBus& bus_;
    DolphinObject object_;
    const Deadline& deadline_;
};

/// Lets `ask` put questions to the running `window` until `deadline`; does not where it is not on
/// the bus.
void askWindow(const DesktopWindow& window, const Deadline& deadline,
               const std::function<void(const DolphinQuestions&)>& ask) {
    auto object = dolphinObject(window);
    auto bus = SessionBus::connect(deadline);
    if (!object || !bus) {
        return;
    }
    DolphinWindow dolphin(*bus, *std::move(object), deadline);
    ask({
        .isOpen = [&](const FileUrl& folder) { return dolphin.isOpen(folder); },
        .isEnabled = [&](const std::string& action) { return dolphin.isEnabled(action); },
        .isWritable =
            [](const FileUrl& folder) { return ::access(folder.path().c_str(), W_OK) == 0; },
    });
}

} // namespace

std::optional<DolphinObject> dolphinObject(const DesktopWindow& window) {
    constexpr std::string_view prefix = "Dolphin#";
    const std::string_view role = window.role;
    const auto number = role.substr(std::min(prefix.size(), role.size()));
    const bool isNumber =
        !number.empty() && number.find_first_not_of("0123456789") == std::string_view::npos;
    if (!role.starts_with(prefix) || !isNumber || window.processId == 0) {
        return std::nullopt;
    }
    return DolphinObject{
        .busName = fmt::format("org.kde.dolphin-{}", window.processId),
        .path = fmt::format("/dolphin/Dolphin_{}", number),
    };
}

std::optional<FileUrl> folderInDolphinWindow(std::string_view caption,
                                             const std::vector<FileUrl>& candidates,
                                             const DolphinQuestions& dolphin) {
    if (caption.starts_with('/')) {
        FileUrl named{std::string(caption)};
        if (dolphin.isOpen(named).value_or(false)) {
            return named;
        }
    }
    if (dolphin.isEnabled(nextTab).value_or(true)) {
        return std::nullopt;
    }
    for (const auto& candidate : candidates) {
        const auto isOpen = dolphin.isOpen(candidate);
        if (!isOpen) {
            return std::nullopt;
        }
        if (*isOpen) {
            const bool couldBeOtherHalf = dolphin.isEnabled(moveToOtherHalf).value_or(true);
            return couldBeOtherHalf || !dolphin.isWritable(candidate) ? std::nullopt
                                                                      : std::optional(candidate);
        }
    }
    return std::nullopt;
}

std::vector<FileUrl> foldersInDolphinWindow(std::string_view caption,
                                            const std::vector<FileUrl>& candidates,
                                            const DolphinQuestions& dolphin) {
    auto looked = candidates;
    if (FileUrl named{std::string(caption)};
        caption.starts_with('/') && std::ranges::find(looked, named) == looked.end()) {
        looked.insert(looked.begin(), std::move(named));
    }
    std::vector<FileUrl> open;
    for (const auto& folder : looked) {
        const auto isOpen = dolphin.isOpen(folder);
        if (!isOpen) {
            break;
        }
        if (*isOpen) {
            open.push_back(folder);
        }
    }
    std::ranges::reverse(open);
    return open;
}

std::optional<FileUrl> askDolphin(const DesktopWindow& window, const KnownFolders& known,
                                  const Deadline& deadline) {
    std::optional<FileUrl> folder;
    const auto caption = captionOfDolphinTitle(window.title);
    askWindow(window, deadline, [&](const DolphinQuestions& dolphin) {
        folder = folderInDolphinWindow(caption, folderCandidates(caption, known), dolphin);
    });
    return folder;
}

std::vector<FileUrl> askDolphinForTabs(const DesktopWindow& window, const KnownFolders& known,
                                       const Deadline& deadline) {
    std::vector<FileUrl> folders;
    const auto caption = captionOfDolphinTitle(window.title);
    askWindow(window, deadline, [&](const DolphinQuestions& dolphin) {
        folders = foldersInDolphinWindow(caption, folderCandidates(caption, known), dolphin);
    });
    return folders;
}

} // namespace blankwell
