#include "platform/linux/FileManagerWorkspace.h"

#include "base/FileUri.h"
#include "platform/linux/DetachedProgram.h"
#include "platform/linux/DirectoryHandler.h"
#include "platform/linux/SystemErrors.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace blankwell {
namespace {

constexpr std::chrono::milliseconds patience{300};

constexpr std::string_view commonName = "org.freedesktop.FileManager1";

/// The own names of file managers that serve the common object also while another program owns the
/// common name, or owned it when they started. Dolphin's ends with its process id.
constexpr std::array ownNames = {
    std::string_view("org.gnome.Nautilus"), std::string_view("org.kde.dolphin-"),
    std::string_view("org.Nemo"),           std::string_view("org.mate.Caja"),
    std::string_view("org.xfce.Thunar"),
};

std::optional<std::string> runningFileManager(const std::vector<std::string>& names) {
    if (std::ranges::find(names, commonName) != names.end()) {
        return std::string(commonName);
    }
    for (const auto own : ownNames) {
        const auto found = std::ranges::find_if(names, [&](const std::string& name) {
            return own.ends_with('-') ? name.starts_with(own) : name == own;
        });
        if (found != names.end()) {
            return *found;
        }
    }
    return std::nullopt;
}

bool start(const Command& command) {
    return startDetached(command);
}

bool startDefaultHandler(const FileUrl& url) {
    const auto handler = defaultDirectoryHandler();
    return handler && std::ranges::any_of(revealCommands(*handler, url), start);
}

} // namespace

FileManagerWorkspace::FileManagerWorkspace(Log& log) : log_(log, "Workspace") {}

void FileManagerWorkspace::reveal(const FileUrl& url) {
    if (const auto shown = show(url, Deadline(patience)); !shown) {
        log_.error("{} is not shown in the file manager. {}", fileUri(url),
                   shown.error().description);
    }
}

bool FileManagerWorkspace::open(std::string_view url) {
    const auto command = openCommand(url);
    return command && start(*command);
}

std::expected<void, SystemError> FileManagerWorkspace::show(const FileUrl& url,
                                                            const Deadline& deadline) {
    if (auto connected = connect(deadline); !connected) {
        return connected;
    }
    const auto names = bus_->ownedNames(deadline);
    if (!names) {
        return std::unexpected(names.error());
    }
    if (const auto running = runningFileManager(*names)) {
        return send(*running, url, SessionBus::AutoStart::no, deadline);
    }
    if (startDefaultHandler(url)) {
        return {};
    }
    return activate(url, deadline);
}

std::expected<void, SystemError> FileManagerWorkspace::connect(const Deadline& deadline) {
    if (bus_ && bus_->isOpen()) {
        return {};
    }
    bus_.reset();
    auto bus = SessionBus::connect(deadline);
    if (!bus) {
        return std::unexpected(std::move(bus).error());
    }
    bus_ = *std::move(bus);
    return {};
}

std::expected<void, SystemError> FileManagerWorkspace::send(const std::string& name,
                                                            const FileUrl& url,
                                                            SessionBus::AutoStart autoStart,
                                                            const Deadline& deadline) {
    auto request = bus_->request({.destination = name,
                                  .path = "/org/freedesktop/FileManager1",
                                  .interface = std::string(commonName),
                                  .member = "ShowItems"});
    if (!request) {
        return std::unexpected(std::move(request).error());
    }
    // The second argument is a start-up notification id, which nobody gave us.
    request->append(std::vector{fileUri(url)}).append("");
    return bus_->send(*request, autoStart, deadline);
}

std::expected<void, SystemError> FileManagerWorkspace::activate(const FileUrl& url,
                                                                const Deadline& deadline) {
    const auto names = bus_->activatableNames(deadline);
    if (!names) {
        return std::unexpected(names.error());
    }
    if (std::ranges::find(*names, commonName) == names->end()) {
        return std::unexpected(posixError(ENOENT, "No file manager is installed"));
    }
    return send(std::string(commonName), url, SessionBus::AutoStart::yes, deadline);
}

} // namespace blankwell
