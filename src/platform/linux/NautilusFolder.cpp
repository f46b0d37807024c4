#include "platform/linux/NautilusFolder.h"

#include "base/FileUri.h"
#include "platform/linux/SessionBus.h"

#include <algorithm>

namespace blankwell {
namespace {

/// The URIs of the tabs of each window, by the window's object path.
std::optional<BusMessage::StringLists> askForOpenWindows(const Deadline& deadline) {
    auto bus = SessionBus::connect(deadline);
    if (!bus) {
        return std::nullopt;
    }
    auto request = bus->request({.destination = "org.gnome.Nautilus",
                                 .path = "/org/freedesktop/FileManager1",
                                 .interface = "org.freedesktop.DBus.Properties",
                                 .member = "Get"});
    if (!request) {
        return std::nullopt;
    }
    request->append("org.freedesktop.FileManager1").append("OpenWindowsWithLocations");
    auto answer = bus->call(*request, deadline);
    return answer ? answer->readVariantOfStringLists() : std::nullopt;
}

} // namespace

std::optional<FileUrl> folderInNautilusWindow(const DesktopWindow& window,
                                              const BusMessage::StringLists& openWindows) {
    const auto found = openWindows.find(window.objectPath);
    if (found == openWindows.end()) {
        return std::nullopt;
    }
    const auto& tabs = found->second;
    if (tabs.size() == 1) {
        return fileOfUri(tabs.front());
    }
    std::vector<FileUrl> titled;
    for (const auto& tab : tabs) {
        const auto folder = fileOfUri(tab);
        if (folder && folder->lastPathComponent() == window.title) {
            titled.push_back(*folder);
        }
    }
    const bool isOneFolder = !titled.empty() && std::ranges::count(titled, titled.front()) ==
                                                    static_cast<std::ptrdiff_t>(titled.size());
    return isOneFolder ? std::optional(titled.front()) : std::nullopt;
}

std::vector<FileUrl> foldersInNautilusWindow(const DesktopWindow& window,
                                             const BusMessage::StringLists& openWindows) {
    std::vector<FileUrl> folders;
    if (const auto found = openWindows.find(window.objectPath); found != openWindows.end()) {
        for (const auto& tab : found->second) {
            if (auto folder = fileOfUri(tab)) {
                folders.push_back(*std::move(folder));
            }
        }
    }
    return folders;
}

std::optional<FileUrl> askNautilus(const DesktopWindow& window, const Deadline& deadline) {
    const auto openWindows = askForOpenWindows(deadline);
    return openWindows ? folderInNautilusWindow(window, *openWindows) : std::nullopt;
}

std::vector<FileUrl> askNautilusForTabs(const DesktopWindow& window, const Deadline& deadline) {
    const auto openWindows = askForOpenWindows(deadline);
    return openWindows ? foldersInNautilusWindow(window, *openWindows) : std::vector<FileUrl>();
}

} // namespace blankwell
