#include "desktop/Desktop.h"

#include "base/FileUri.h"
#include "desktop/Program.h"
#include "platform/linux/SessionBus.h"
#include "platform/linux/X11WindowList.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <thread>

namespace blankwell {
namespace {

/// The numbers of the windows, the lowest first, as `x11WindowStack` has them.
std::vector<std::string> windowNumbers() {
    const auto list = outputOf({"xprop", "-root", "_NET_CLIENT_LIST_STACKING"});
    const std::regex number("0x[0-9a-f]+");
    return {std::sregex_token_iterator(list.begin(), list.end(), number),
            std::sregex_token_iterator()};
}

std::optional<FileUrl> firstFileIn(const std::string& clipboard) {
    const auto start = clipboard.find("file://");
    if (start == std::string::npos) {
        return std::nullopt;
    }
    return fileOfUri(clipboard.substr(start, clipboard.find_first_of("\r\n", start) - start));
}

} // namespace

FileUrl desktopHome() {
    return FileUrl(std::getenv("HOME"));
}

FileUrl makeFolder(std::string_view name) {
    auto folder = desktopHome().appending(name);
    std::filesystem::create_directories(folder.path());
    return folder;
}

FileUrl makeFile(std::string_view name) {
    auto file = desktopHome().appending(name);
    std::filesystem::create_directories(file.deletingLastPathComponent().path());
    std::ofstream(file.path()).flush();
    return file;
}

void makeSettings(std::string_view name, std::string_view contents) {
    const auto file = makeFile(".config/" + std::string(name));
    std::ofstream(file.path()) << contents;
}

std::vector<std::string> windowTitles() {
    std::vector<std::string> titles;
    if (const auto stack = x11WindowStack(Deadline(std::chrono::seconds(20)))) {
        std::ranges::transform(stack->windows, std::back_inserter(titles), &DesktopWindow::title);
    }
    return titles;
}

bool windowAppears(const std::string& title) {
    return eventually([&] {
        const auto titles = windowTitles();
        return std::ranges::find(titles, title) != titles.end();
    });
}

bool bringToFront(const std::string& title) {
    return eventually([&] {
        const auto window = windowNumber(title);
        outputOf({"xdotool", "windowactivate", window});
        return outputOf({"xdotool", "getactivewindow"}) == window + '\n';
    });
}

std::string windowNumber(const std::string& title) {
    const auto titles = windowTitles();
    const auto numbers = windowNumbers();
    for (std::size_t i = 0; i < std::min(titles.size(), numbers.size()); ++i) {
        if (titles[i] == title) {
            return std::to_string(std::stoul(numbers[i], nullptr, 16));
        }
    }
    return "";
}

void type(const std::string& keys) {
    outputOf({"xdotool", "key", keys});
}

std::optional<FileUrl> copiedFile() {
    type("ctrl+c");
    // Keys that come faster than a window is filled keep it from taking the keyboard in its list.
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    return firstFileIn(
        outputOf({"xclip", "-selection", "clipboard", "-target", "text/uri-list", "-out"}));
}

bool isOnBus(const std::string& name) {
    const Deadline deadline(std::chrono::seconds(5));
    auto bus = SessionBus::connect(deadline);
    const auto names = bus ? bus->ownedNames(deadline) : std::unexpected(bus.error());
    return names && std::ranges::find(*names, name) != names->end();
}

} // namespace blankwell
