#include "filetypes/CreationDestination.h"

#include "base/Text.h"
#include "platform/Account.h"
#include "platform/FrontFolder.h"
#include "platform/RealHome.h"
#include "platform/WellKnownFolders.h"

#include <algorithm>

namespace blankwell {

std::string_view rawValue(CreationDestinationMode mode) {
    return mode == CreationDestinationMode::desktop ? "desktop" : "frontFinderFolder";
}

std::optional<CreationDestinationMode> creationDestinationMode(std::string_view rawValue) {
    const auto* const found =
        std::ranges::find_if(allCreationDestinationModes, [&](CreationDestinationMode mode) {
            return blankwell::rawValue(mode) == rawValue;
        });
    return found == allCreationDestinationModes.end() ? std::nullopt : std::optional(*found);
}

std::string_view title(CreationDestinationMode mode) {
    return mode == CreationDestinationMode::desktop ? "Desktop" : "Front Finder folder";
}

std::string ResolvedCreationDestination::destinationName() const {
    if (mode == CreationDestinationMode::desktop || usedFallback) {
        return "Desktop";
    }
    const auto name = url.lastPathComponent();
    return std::string(name.empty() ? url.path() : name);
}

FileUrl CreationDestination::desktopFolderURL() const {
    return folders_.desktop(homeFolder(account_)).standardized();
}

std::optional<FileUrl> CreationDestination::frontFinderFolderURL() const {
    auto path = frontFolder_.path();
    if (!path || trimmed(*path).empty()) {
        return std::nullopt;
    }
    return FileUrl(*std::move(path)).standardized();
}

ResolvedCreationDestination CreationDestination::resolve(CreationDestinationMode mode) const {
    if (mode == CreationDestinationMode::desktop) {
        return {.mode = mode, .url = desktopFolderURL()};
    }
    if (auto folder = frontFinderFolderURL()) {
        return {.mode = mode, .url = *std::move(folder)};
    }
    return {.mode = mode, .url = desktopFolderURL(), .usedFallback = true};
}

std::string_view frontFinderFolderScript() {
    return "tell application \"Finder\"\n"
           "    if (count of Finder windows) is 0 then return \"\"\n"
           "    set folderAlias to target of front Finder window as alias\n"
           "    return POSIX path of folderAlias\n"
           "end tell";
}

} // namespace blankwell
