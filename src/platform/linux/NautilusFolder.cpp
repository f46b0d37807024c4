#include "platform/linux/NautilusFolder.h"

#include "base/FileUri.h"
#include "platform/linux/SessionBus.h"

#include <algorithm>

namespace blankwell {

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

std::optional<FileUrl> askNautilus(const DesktopWindow& window, const Deadline& deadline) {
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
    const auto openWindows = answer ? answer->readVariantOfStringLists() : std::nullopt;
    return openWindows ? folderInNautilusWindow(window, *openWindows) : std::nullopt;
}

} // namespace blankwell
