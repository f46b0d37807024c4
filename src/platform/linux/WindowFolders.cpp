#include "platform/linux/WindowFolders.h"

#include "base/FileUri.h"
#include "platform/linux/AccessibleFolder.h"
#include "platform/linux/DolphinFolder.h"
#include "platform/linux/FolderTitles.h"
#include "platform/linux/NautilusFolder.h"

#include <glib.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <utility>

namespace blankwell {
namespace {

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

} // namespace

WindowFolders::WindowFolders(const WellKnownFolders& wellKnown, FileUrl home,
                             std::function<std::vector<FileUrl>()> roots)
    : wellKnown_(wellKnown), home_(std::move(home)), roots_(std::move(roots)) {}

std::optional<FileUrl> WindowFolders::front(const FileManagerWindow& window,
                                            const Deadline& deadline) const {
    auto folder = ask(window, deadline);
    return folder && isFolder(*folder) ? folder : std::nullopt;
}

std::vector<FileUrl> WindowFolders::all(const FileManagerWindow& window,
                                        const Deadline& deadline) const {
    std::vector<FileUrl> folders;
    if (window.fileManager == FileManager::nautilus) {
        folders = askNautilusForTabs(window.window, deadline);
    } else if (window.fileManager == FileManager::dolphin) {
        folders = askDolphinForTabs(window.window, known(), deadline);
    } else if (auto folder = ask(window, deadline)) {
        folders.push_back(*std::move(folder));
    }
    std::erase_if(folders, std::not_fn(isFolder));
    return folders;
}

std::optional<FileUrl> WindowFolders::ask(const FileManagerWindow& front,
                                          const Deadline& deadline) const {
    const auto& window = front.window;
    if (window.kind == DesktopWindow::Kind::desktop) {
        return wellKnown_.desktop(home_);
    }
    if (!window.location.empty()) {
        return fileOfUri(window.location);
    }
    switch (front.fileManager) {
    case FileManager::nautilus:
        return askNautilus(window, deadline);
    case FileManager::dolphin:
        return askDolphin(window, known(), deadline);
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

KnownFolders WindowFolders::known() const {
    auto favourites = userFolders();
    favourites.push_back(wellKnown_.desktop(home_));
    std::ranges::move(roots_(), std::back_inserter(favourites));
    return {home_, std::move(favourites), wellKnown_.volumes()};
}

} // namespace blankwell
