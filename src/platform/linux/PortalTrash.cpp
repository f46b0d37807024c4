#include "platform/linux/PortalTrash.h"

#include "platform/linux/Deadline.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/SystemErrors.h"
#include "platform/linux/WatchedBus.h"

#include <fmt/core.h>
#include <systemd/sd-bus.h>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdint>
#include <functional>
#include <optional>

namespace blankwell {
namespace {

std::unexpected<SystemError> failure(int number, const FileUrl& url) {
    return std::unexpected(
        fileError(number, fmt::format("The desktop cannot move \"{}\" to the Trash", url.path())));
}

/// The item as the portal takes it; the error is an `errno` value.
std::expected<FileDescriptor, int> openItem(const FileUrl& url) {
    const FileDescriptor found(::open(url.path().c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
    struct stat status{};
    if (!found || ::fstat(found.get(), &status) != 0) {
        return std::unexpected(errno);
    }
    if (S_ISLNK(status.st_mode)) {
        return std::unexpected(ELOOP);
    }
    // The portal takes none that was opened with O_NOFOLLOW.
    FileDescriptor item(
        ::open(fmt::format("/proc/self/fd/{}", found.get()).c_str(), O_PATH | O_CLOEXEC));
    return item ? std::expected<FileDescriptor, int>(std::move(item)) : std::unexpected(errno);
}

std::expected<BusMessage, SystemError> trashRequest(const WatchedBus& bus,
                                                    const FileDescriptor& item) {
    auto request = bus.request({.destination = "org.freedesktop.portal.Desktop",
                                .path = "/org/freedesktop/portal/desktop",
                                .interface = "org.freedesktop.portal.Trash",
                                .member = "TrashFile"});
    if (!request) {
        return request;
    }
    const int descriptor = item.get();
    const int result =
        sd_bus_message_append_basic(request->get(), SD_BUS_TYPE_UNIX_FD, &descriptor);
    return result < 0 ? std::unexpected(posixError(-result, "The portal cannot be asked"))
                      : std::move(request);
}

std::expected<void, int> outcome(WatchedBus::Answer answer) {
    if (!answer) {
        return std::unexpected(answer.error().code);
    }
    std::uint32_t result = 0;
    const bool isRead = sd_bus_message_read_basic(answer->get(), SD_BUS_TYPE_UINT32, &result) > 0;
    return isRead && result == 1 ? std::expected<void, int>() : std::unexpected(EIO);
}

void waitForEvents(const WatchedBus& bus, const Deadline& deadline) {
    const auto time = std::chrono::ceil<std::chrono::milliseconds>(deadline.remaining());
    pollfd readiness{.fd = bus.descriptor(), .events = POLLIN, .revents = 0};
    ::poll(&readiness, 1, static_cast<int>(time.count()));
}

/// Serves `bus` until `isDone`; the error is an `errno` value.
std::expected<void, int> serve(WatchedBus& bus, const std::function<bool()>& isDone,
                               const Deadline& deadline, const std::stop_token& stop) {
    while (!isDone()) {
        if (stop.stop_requested() || deadline.hasPassed()) {
            return std::unexpected(stop.stop_requested() ? ECANCELED : ETIMEDOUT);
        }
        if (!bus.isConnected()) {
            return std::unexpected(ENOTCONN);
        }
        waitForEvents(bus, deadline);
        bus.processEvents();
    }
    return {};
}

std::expected<void, int> trash(const FileDescriptor& item, const Deadline& deadline,
                               const std::stop_token& stop) {
    std::optional<WatchedBus::Answer> answer;
    WatchedBus bus([](BusMessage&) {});
    const std::stop_callback wakeUp(stop, [&] { bus.wakeUp(); });
    // Before the bus has answered, sd-bus would wait for it to take a descriptor.
    const auto isReady = [&] { return !bus.uniqueName().empty(); };
    if (auto ready = serve(bus, isReady, deadline, stop); !ready) {
        return ready;
    }
    const auto request = trashRequest(bus, item);
    if (!request) {
        return std::unexpected(request.error().code);
    }
    bus.call(*request, std::chrono::ceil<std::chrono::milliseconds>(deadline.remaining()),
             [&](WatchedBus::Answer given) { answer = std::move(given); });
    const auto answered = serve(bus, [&] { return answer.has_value(); }, deadline, stop);
    return answered ? outcome(*std::move(answer)) : answered;
}

} // namespace

std::expected<void, SystemError> trashWithPortal(const FileUrl& url,
                                                 std::chrono::milliseconds patience,
                                                 const std::stop_token& stop) {
    const Deadline deadline(patience);
    const auto item = openItem(url);
    if (!item) {
        return failure(item.error(), url);
    }
    const auto moved = trash(*item, deadline, stop);
    return moved ? std::expected<void, SystemError>() : failure(moved.error(), url);
}

} // namespace blankwell
