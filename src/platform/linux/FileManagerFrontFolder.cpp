#include "platform/linux/FileManagerFrontFolder.h"

#include "platform/linux/AccessibleFolder.h"
#include "platform/linux/DolphinFolder.h"
#include "platform/linux/FolderTitles.h"
#include "platform/linux/FrontWindow.h"
#include "platform/linux/NautilusFolder.h"
#include "platform/linux/X11WindowList.h"

#include <glib.h>

#include <filesystem>
#include <utility>

namespace blankwell {
namespace {

constexpr std::chrono::milliseconds patience{300};

bool isFolder(const FileUrl& url) {
    std::error_code error;
    return std::filesystem::is_directory(url.path(), error);
}

/// Documents, Downloads and so on, where the user has them.
std::vector<FileUrl> userFolders() {
    std::vector<FileUrl> folders;
    for (int i = 0; i < G_USER_N_DIRECTORIES; ++i) {
        if (const auto* path = g_get_user_special_dir(static_cast<GUserDirectory>(i))) {
            folders.emplace_back(path);
        }
    }
    return folders;
}

struct Places {
    FileUrl desktop;
    std::function<KnownFolders()> known;
};

std::optional<FileUrl> ask(const FrontWindow& front, const Places& places,
                           const Deadline& deadline) {
    const auto& window = front.window;
    if (window.kind == DesktopWindow::Kind::desktop) {
        return places.desktop;
    }
    switch (front.fileManager) {
    case FileManager::nautilus:
        return askNautilus(window, deadline);
    case FileManager::dolphin:
        return askDolphin(window, places.known(), deadline);
    case FileManager::thunar:
        return folderInThunarTitle(window.title, isFolder).or_else([&] {
            return askAccessibleWindow(window, nameInThunarTitle(window.title), isFolder, deadline);
        });
    case FileManager::nemo:
        return folderInNemoTitle(window.title, isFolder).or_else([&] {
            return askAccessibleWindow(window, window.title, isFolder, deadline);
        });
    case FileManager::caja:
    case FileManager::pcmanfmQt:
        return askAccessibleWindow(window, window.title, isFolder, deadline);
    }
    return std::nullopt;
}

} // namespace

FileManagerFrontFolder::FileManagerFrontFolder(const WellKnownFolders& wellKnown, FileUrl home,
                                               std::function<std::vector<FileUrl>()> roots)
    : wellKnown_(wellKnown), home_(std::move(home)), roots_(std::move(roots)) {}

std::optional<std::string> FileManagerFrontFolder::path() {
    const Deadline deadline(patience);
    const auto stack = x11WindowStack();
    if (!stack) {
        return std::nullopt;
    }
    const auto front = frontWindow(*stack);
    if (!front) {
        return "";
    }
    const auto desktop = wellKnown_.desktop(home_);
    const auto known = [&] {
        auto favourites = userFolders();
        favourites.push_back(desktop);
        std::ranges::move(roots_(), std::back_inserter(favourites));
        return KnownFolders{home_, std::move(favourites), wellKnown_.volumes()};
    };
    const auto folder = ask(*front, {desktop, known}, deadline);
    return folder && isFolder(*folder) ? std::optional(folder->path()) : std::nullopt;
}

} // namespace blankwell
