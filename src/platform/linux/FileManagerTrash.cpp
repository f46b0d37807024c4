#include "platform/linux/FileManagerTrash.h"

#include "base/FileUri.h"
#include "platform/linux/Deadline.h"
#include "platform/linux/GioTrash.h"
#include "platform/linux/SessionBus.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace blankwell {
namespace {

using Outcome = std::expected<void, FileManagerScriptFailure>;
using Names = std::vector<std::string>;

/// A file manager's method that takes URIs of items, then more.
struct Service {
    const char* name;
    const char* path;
    const char* interface;
    const char* member;
    void (*appendRest)(BusMessage&);
};

void appendNoPlatformData(BusMessage& message) {
    message.appendEmptyArray("{sv}");
}

/// The display for its windows, and no start-up notification id.
void appendDisplay(BusMessage& message) {
    const auto* const display = std::getenv("DISPLAY");
    message.append(display == nullptr ? "" : display).append("");
}

constexpr std::array services = {
    Service{"org.gnome.Nautilus", "/org/gnome/Nautilus/FileOperations2",
            "org.gnome.Nautilus.FileOperations2", "TrashURIs", appendNoPlatformData},
    Service{"org.xfce.FileManager", "/org/xfce/FileManager", "org.xfce.Trash", "MoveToTrash",
            appendDisplay},
};

Outcome refused(std::string words) {
    return std::unexpected(FileManagerScriptFailure{FileManagerScriptFailure::Refused{
        .localizedDescription = std::move(words), .scriptErrorMessage = std::nullopt}});
}

const Service* firstAmong(const Names& names) {
    const auto* const found = std::ranges::find_if(services, [&](const Service& service) {
        return std::ranges::find(names, service.name) != names.end();
    });
    return found == services.end() ? nullptr : found;
}

/// The one that runs, else one that can be started; nullptr where there is none.
std::expected<const Service*, SystemError> chooseService(SessionBus& bus,
                                                         const Deadline& deadline) {
    const auto owned = bus.ownedNames(deadline);
    if (!owned) {
        return std::unexpected(owned.error());
    }
    if (const auto* const running = firstAmong(*owned)) {
        return running;
    }
    const auto activatable = bus.activatableNames(deadline);
    if (!activatable) {
        return std::unexpected(activatable.error());
    }
    return firstAmong(*activatable);
}

void waitUntilGone(const FileUrl& url, const Deadline& deadline) {
    struct stat status{};
    while (::lstat(url.path().c_str(), &status) == 0 && !deadline.hasPassed()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

Outcome ask(SessionBus& bus, const Service& service, const FileUrl& url, const Deadline& deadline) {
    auto request = bus.request({service.name, service.path, service.interface, service.member});
    if (!request) {
        return std::unexpected(FileManagerScriptFailure{FileManagerScriptFailure::NotPrepared()});
    }
    request->append(std::vector{fileUri(url)});
    service.appendRest(*request);
    const auto answer = bus.ask(*request, SessionBus::AutoStart::yes, deadline);
    return answer ? Outcome() : refused(answer.error().message);
}

} // namespace

Outcome trashWithFileManager(const FileUrl& url, FileManagerTrashPatience patience) {
    if (const auto taken = checkTrashTakes(url); !taken) {
        return refused(taken.error().description);
    }
    const Deadline deadline(patience.answer);
    auto bus = SessionBus::connect(deadline);
    if (!bus) {
        return refused(bus.error().description);
    }
    const auto service = chooseService(*bus, deadline);
    if (!service) {
        return refused(service.error().description);
    }
    if (*service == nullptr) {
        return refused("There is no file manager that moves items to the Trash for others.");
    }
    auto moved = ask(*bus, **service, url, deadline);
    if (moved) {
        waitUntilGone(url, Deadline(patience.removal));
    }
    return moved;
}

} // namespace blankwell
