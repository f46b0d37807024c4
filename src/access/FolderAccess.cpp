#include "access/FolderAccess.h"

#include "access/SecurityScopedBookmarkStore.h"
#include "filetypes/FileCreator.h"
#include "filetypes/FileTypeDefinition.h"
#include "platform/AccessScopes.h"
#include "platform/Account.h"
#include "platform/Application.h"
#include "platform/FileSystem.h"
#include "platform/RealHome.h"
#include "platform/Sandbox.h"
#include "platform/WellKnownFolders.h"

#include <fmt/core.h>

#include <utility>

namespace blankwell {
namespace {

using Error = SecurityScopedFolderAccessError;

FileUrl dropboxFolder(const FileUrl& home) {
    return home.appending("Dropbox").standardized();
}

FileUrl iCloudDriveFolder(const FileUrl& home) {
    return home.appending("Library/Mobile Documents/com~apple~CloudDocs").standardized();
}

FileUrl cloudStorageFolder(const FileUrl& home) {
    return home.appending("Library/CloudStorage").standardized();
}

/// The folder directly inside `ancestor` that holds `descendant`, which is somewhere below.
FileUrl childOnTheWay(const FileUrl& ancestor, const FileUrl& descendant) {
    const auto start = ancestor.path().size() + 1;
    return FileUrl(descendant.path().substr(0, descendant.path().find('/', start)));
}

bool isConfirmed(const OpenPanelResult& result) {
    return result.response == OpenPanelResult::Response::confirmed;
}

std::unexpected<Error> cancelled(const FileUrl& folder) {
    return std::unexpected(Error{Error::AccessCancelled{folder}});
}

} // namespace

std::string description(const CreationError& error) {
    return std::visit([](const auto& cause) { return cause.description(); }, error);
}

std::expected<FileUrl, CreationError>
FolderAccess::createWithFolderAccess(const FileUrl& directory, AccessPrompt prompt,
                                     const FileTypeDefinition& type) {
    const auto target = directory.standardized();
    if (!isSandboxed(services_.environment)) {
        return services_.creator.createFile(type, target);
    }
    if (const auto saved = services_.store.savedAccessURL(target)) {
        return createInScope(*saved, target, type);
    }
    if (prompt == AccessPrompt::forbidden) {
        return std::unexpected(Error{Error::NoSavedAccess{target}});
    }
    const auto home = realHomeFolder(services_.account);
    const auto suggested = suggestedRoot(target, home).value_or(target);
    const auto granted = requestAccess(suggested, target, "Allow Folder Access", std::nullopt);
    if (!granted) {
        return std::unexpected(granted.error());
    }
    return createInScope(*granted, target, type);
}

std::optional<FileUrl> FolderAccess::suggestedRoot(const FileUrl& target,
                                                   const std::optional<FileUrl>& home) {
    if (!home) {
        return std::nullopt;
    }
    for (const auto& root : {dropboxFolder(*home), iCloudDriveFolder(*home)}) {
        if (covers(root, target)) {
            return root;
        }
    }
    const auto providers = cloudStorageFolder(*home);
    const auto standardizedTarget = target.standardized();
    if (covers(providers, standardizedTarget) && standardizedTarget != providers) {
        return childOnTheWay(providers, standardizedTarget);
    }
    return std::nullopt;
}

FolderAccess::Result<FileUrl>
FolderAccess::requestAccess(const FileUrl& suggested, const std::optional<FileUrl>& target,
                            std::string_view title, const std::optional<std::string>& message) {
    const auto asked = suggested.standardized();
    const auto needed = target.value_or(suggested).standardized();
    const auto panel =
        makeAccessPanel(std::string(title), message ? *message : defaultMessage(asked, needed),
                        asked.deletingLastPathComponent(), false);
    services_.application.activate();
    const auto result = services_.openPanel.runModal(panel);
    if (!isConfirmed(result) || result.urls.empty()) {
        return cancelled(asked);
    }
    auto chosen = result.urls.front().standardized();
    if (!covers(chosen, needed)) {
        return std::unexpected(Error{Error::WrongFolder{asked, chosen}});
    }
    if (const auto saved = services_.store.saveBookmark(result.urls.front(), chosen); !saved) {
        return std::unexpected(saved.error());
    }
    return chosen;
}

FolderAccess::Result<FileUrl> FolderAccess::grantHomeFolder() {
    const auto home = realHomeFolder(services_.account);
    if (!home) {
        return std::unexpected(Error{Error::HomeFolderUnavailable{}});
    }
    return requestAccess(
        *home, home, "Allow Home Folder Access",
        "Choose your home folder so Blankwell+ can create files in folders you own.");
}

FolderAccess::Result<std::vector<FileUrl>> FolderAccess::grantCloudFolders() {
    const auto home = realHomeFolder(services_.account);
    if (!home) {
        return std::unexpected(Error{Error::HomeFolderUnavailable{}});
    }
    std::vector<FileUrl> granted;
    // Each of the single folders may be refused: the others are asked for all the same.
    const auto askFor = [&](const FileUrl& folder) {
        if (!services_.fileSystem.isDirectory(folder)) {
            return;
        }
        if (auto chosen = requestAccessToFolder(folder)) {
            granted.push_back(*std::move(chosen));
        }
    };

    askFor(dropboxFolder(*home));
    if (const auto providers = cloudStorageFolder(*home);
        services_.fileSystem.isDirectory(providers)) {
        const auto panel = makeAccessPanel(
            "Add Cloud Folder Access",
            "Choose Google Drive, OneDrive, or other provider folders that Blankwell+ can use.",
            providers, true);
        services_.application.activate();
        if (const auto result = services_.openPanel.runModal(panel); isConfirmed(result)) {
            const auto saved = save(result.urls);
            if (!saved) {
                return std::unexpected(saved.error());
            }
            granted.insert(granted.end(), saved->begin(), saved->end());
        }
    }
    askFor(iCloudDriveFolder(*home));

    if (granted.empty()) {
        return cancelled(*home);
    }
    return granted;
}

FolderAccess::Result<std::vector<FileUrl>> FolderAccess::grantExternalVolumes() {
    return grantSeveral(makeAccessPanel("Add External Volume Access",
                                        "Choose external volumes that Blankwell+ can use.",
                                        services_.folders.volumes().front(), true),
                        FileUrl("/Volumes"));
}

FolderAccess::Result<std::vector<FileUrl>> FolderAccess::grantOtherFolders() {
    const auto home = realHomeFolder(services_.account);
    return grantSeveral(makeAccessPanel("Add Other Folders",
                                        "Choose any other folders Blankwell+ can create files in.",
                                        home, true),
                        home ? *home : services_.account.processHome());
}

OpenPanelConfiguration FolderAccess::makeAccessPanel(std::string title, std::string message,
                                                     std::optional<FileUrl> directory,
                                                     bool allowsMultipleSelection) {
    return {
        .title = std::move(title),
        .message = std::move(message),
        .prompt = "Allow Access",
        .canChooseFiles = false,
        .canChooseDirectories = true,
        .canCreateDirectories = false,
        .allowsMultipleSelection = allowsMultipleSelection,
        .resolvesAliases = true,
        .directory = std::move(directory),
    };
}

std::expected<FileUrl, CreationError> FolderAccess::createInScope(const FileUrl& grant,
                                                                  const FileUrl& folder,
                                                                  const FileTypeDefinition& type) {
    const AccessScope scope(services_.scopes, grant);
    return services_.creator.createFile(type, folder);
}

FolderAccess::Result<FileUrl> FolderAccess::requestAccessToFolder(const FileUrl& folder) {
    const auto asked = folder.standardized();
    const auto name = services_.fileSystem.displayName(asked);
    const auto panel = makeAccessPanel(
        fmt::format("Allow {} Access", name),
        fmt::format("Click Allow Access to let Blankwell+ create files in {} and its subfolders.",
                    name),
        asked, false);
    services_.application.activate();
    const auto result = services_.openPanel.runModal(panel);
    if (!isConfirmed(result)) {
        return cancelled(asked);
    }
    auto chosen = (result.urls.empty() ? asked : result.urls.front()).standardized();
    if (const auto saved = services_.store.saveBookmark(chosen, chosen); !saved) {
        return std::unexpected(saved.error());
    }
    return chosen;
}

std::string FolderAccess::defaultMessage(const FileUrl& suggested, const FileUrl& target) const {
    const auto name = services_.fileSystem.displayName(suggested);
    if (suggested == target) {
        return fmt::format("Choose {} so Blankwell+ can create files there.", name);
    }
    return fmt::format(
        "Grant access to {} so Blankwell+ can create files in it and all its subfolders.", name);
}

FolderAccess::Result<std::vector<FileUrl>> FolderAccess::save(const std::vector<FileUrl>& chosen) {
    std::vector<FileUrl> saved;
    for (const auto& url : chosen) {
        auto folder = url.standardized();
        if (const auto kept = services_.store.saveBookmark(url, folder); !kept) {
            return std::unexpected(kept.error());
        }
        saved.push_back(std::move(folder));
    }
    return saved;
}

FolderAccess::Result<std::vector<FileUrl>>
FolderAccess::grantSeveral(const OpenPanelConfiguration& panel, const FileUrl& askedFor) {
    const auto result = services_.openPanel.runModal(panel);
    return isConfirmed(result) ? save(result.urls) : cancelled(askedFor);
}

} // namespace blankwell
