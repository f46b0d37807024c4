#include "platform/linux/FrontWindow.h"

#include <algorithm>
#include <array>
#include <ranges>
#include <string_view>

namespace blankwell {
namespace {

struct WindowClass {
    std::string_view name;
    FileManager fileManager;
};

constexpr std::array windowClasses = {
    WindowClass{"org.gnome.nautilus", FileManager::nautilus},
    WindowClass{"dolphin", FileManager::dolphin},
    WindowClass{"org.kde.dolphin", FileManager::dolphin},
    WindowClass{"thunar", FileManager::thunar},
    WindowClass{"nemo", FileManager::nemo},
    WindowClass{"nemo-desktop", FileManager::nemo},
    WindowClass{"caja", FileManager::caja},
    WindowClass{"pcmanfm-qt", FileManager::pcmanfmQt},
};

char lower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character | 0x20) : character;
}

/// Toolkits capitalise the name of the program or not, by version and by how it was started.
std::optional<FileManager> fileManagerOf(const DesktopWindow& window) {
    const auto* const found = std::ranges::find_if(windowClasses, [&](const auto& candidate) {
        return std::ranges::equal(candidate.name, window.windowClass, {}, {}, lower);
    });
    return found == windowClasses.end() ? std::nullopt : std::optional(found->fileManager);
}

bool isLookedAt(const DesktopWindow& window, std::optional<std::uint32_t> workspace) {
    const bool isHere = !workspace || window.workspace == *workspace ||
                        window.workspace == DesktopWindow::everyWorkspace;
    return isHere && !window.isHidden && window.kind != DesktopWindow::Kind::other;
}

} // namespace

std::optional<FileManagerWindow> frontWindow(const WindowStack& stack) {
    for (const auto& window : stack.windows | std::views::reverse) {
        const auto fileManager = fileManagerOf(window);
        if (fileManager && isLookedAt(window, stack.workspace)) {
            return FileManagerWindow{*fileManager, window};
        }
    }
    return std::nullopt;
}

std::vector<FileManagerWindow> fileManagerWindows(const WindowStack& stack) {
    std::vector<FileManagerWindow> windows;
    for (const auto& window : stack.windows) {
        const auto fileManager = fileManagerOf(window);
        if (fileManager && window.kind != DesktopWindow::Kind::other) {
            windows.push_back({*fileManager, window});
        }
    }
    return windows;
}

} // namespace blankwell
