#include "access/FolderAccessSetupModel.h"

#include "access/SecurityScopedBookmarkStore.h"
#include "platform/Account.h"
#include "platform/FileSystem.h"
#include "platform/WellKnownFolders.h"

#include <fmt/format.h>

#include <algorithm>

namespace blankwell {

void FolderAccessSetupModel::appear() {
    reload();
    changed_();
}

void FolderAccessSetupModel::grant(FolderGrant grant) {
    if (const auto folders = granted(grant)) {
        statusMessage_ = savedMessage(*folders);
        reload();
    } else {
        statusMessage_ = folders.error().description();
    }
    changed_();
}

void FolderAccessSetupModel::forget(const FileUrl& root) {
    const auto removed = services_.store.removeBookmark(root);
    statusMessage_ = removed ? fmt::format("Removed access to {}.", displayName(root))
                             : removed.error().description;
    reload();
    changed_();
}

std::string FolderAccessSetupModel::summary() const {
    switch (authorizedFolders_.size()) {
    case 0:
        return "No saved folder roots.";
    case 1:
        return "1 saved folder root.";
    default:
        return fmt::format("{} saved folder roots.", authorizedFolders_.size());
    }
}

std::vector<FolderRootRow> FolderAccessSetupModel::rows() const {
    std::vector<FolderRootRow> rows;
    rows.reserve(authorizedFolders_.size());
    for (const auto& root : authorizedFolders_) {
        rows.push_back({.root = root, .name = displayName(root), .symbol = symbol(root)});
    }
    return rows;
}

FolderAccessSetupModel::Granted FolderAccessSetupModel::granted(FolderGrant grant) {
    switch (grant) {
    case FolderGrant::homeFolder: {
        auto home = services_.folderAccess.grantHomeFolder();
        if (!home) {
            return std::unexpected(std::move(home).error());
        }
        return std::vector{*std::move(home)};
    }
    case FolderGrant::cloudFolders:
        return services_.folderAccess.grantCloudFolders();
    case FolderGrant::externalVolumes:
        return services_.folderAccess.grantExternalVolumes();
    case FolderGrant::otherFolders:
        break;
    }
    return services_.folderAccess.grantOtherFolders();
}

std::string FolderAccessSetupModel::savedMessage(const std::vector<FileUrl>& folders) const {
    switch (folders.size()) {
    case 0:
        return "No folder roots selected.";
    case 1:
        return fmt::format("Saved access to {}.", displayName(folders.front()));
    default:
        return fmt::format("Saved access to {} folder roots.", folders.size());
    }
}

// Not the real home: in a sandbox the user's home is a granted folder like any other.
bool FolderAccessSetupModel::isHome(const FileUrl& root) const {
    return root == services_.account.processHome().standardized();
}

bool FolderAccessSetupModel::isExternal(const FileUrl& root) const {
    return std::ranges::any_of(services_.folders.volumes(), [&](const FileUrl& volumes) {
        return root.path().starts_with(volumes.path() + "/");
    });
}

std::string FolderAccessSetupModel::displayName(const FileUrl& root) const {
    return isHome(root) ? "Home" : services_.fileSystem.displayName(root);
}

std::string FolderAccessSetupModel::symbol(const FileUrl& root) const {
    if (isExternal(root)) {
        return "externaldrive";
    }
    return isHome(root) ? "house" : "folder";
}

void FolderAccessSetupModel::reload() {
    authorizedFolders_ = services_.store.savedFolderRoots();
}

} // namespace blankwell
