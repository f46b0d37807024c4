#include "platform/linux/DBusApplication.h"

#include "platform/ApplicationRequests.h"
#include "platform/ObjectPath.h"
#include "platform/linux/ProcessHandle.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <thread>
#include <utility>

#include <sys/types.h>

namespace blankwell {
namespace {

using Request = HandOverFailure::Request;

constexpr std::string_view serviceUnknown = "org.freedesktop.DBus.Error.ServiceUnknown";

/// The errors by which the bus says that it has not delivered a message, and will not, or the
/// program that it has no such method. Any other leaves it open what the program has done.
constexpr std::array undelivered = {
    serviceUnknown,
    std::string_view("org.freedesktop.DBus.Error.NameHasNoOwner"),
    std::string_view("org.freedesktop.DBus.Error.AccessDenied"),
    std::string_view("org.freedesktop.DBus.Error.LimitsExceeded"),
    std::string_view("org.freedesktop.DBus.Error.TimedOut"), // of a start
    std::string_view("org.freedesktop.DBus.Error.UnknownInterface"),
    std::string_view("org.freedesktop.DBus.Error.UnknownMethod"),
    std::string_view("org.freedesktop.DBus.Error.UnknownObject"),
};
constexpr std::string_view startFailed = "org.freedesktop.DBus.Error.Spawn.";

bool isUndelivered(const BusError& error) {
    return error.name.starts_with(startFailed) ||
           std::ranges::find(undelivered, error.name) != undelivered.end();
}

std::unexpected<HandOverFailure> notTaken(std::string_view reason) {
    return std::unexpected(HandOverFailure{Request::notTaken, std::string(reason)});
}

SessionApplication::Taken failure(const BusError& error) {
    if (error.wasNeverSent()) {
        return notTaken(error.message);
    }
    if (error.name == serviceUnknown) {
        return notTaken(
            "Blankwell+ is not running, and the session does not know how to start it.");
    }
    if (isUndelivered(error)) {
        return notTaken(fmt::format("Blankwell+ could not be started or asked: {}", error.message));
    }
    return std::unexpected(HandOverFailure{Request::unknown,
                                           "Blankwell+ was asked and does not answer, so it may do "
                                           "it yet: look before you try again."});
}

/// The process that owns `name`; nothing where none does.
std::optional<ProcessHandle> ownerOf(SessionBus& bus, const std::string& name,
                                     const Deadline& deadline) {
    const auto process = bus.processOf(name, deadline);
    return process ? ProcessHandle::open(static_cast<pid_t>(*process)) : std::nullopt;
}

bool endsBy(const ProcessHandle& process, const Deadline& deadline) {
    while (!process.hasEnded() && !deadline.hasPassed()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return process.hasEnded();
}

} // namespace

DBusApplication::DBusApplication(std::string_view name, Patience patience)
    : object_{.destination = std::string(name),
              .path = objectPath(name),
              .interface = "org.freedesktop.Application",
              .member = ""},
      patience_(patience) {}

SessionApplication::Taken DBusApplication::activate() {
    return ask("Activate", [](BusMessage&) {});
}

SessionApplication::Taken DBusApplication::open(const std::vector<std::string>& urls) {
    return ask("Open", [&](BusMessage& message) { message.append(urls); });
}

SessionApplication::Taken DBusApplication::activateAction(std::string_view action) {
    return ask("ActivateAction", [&](BusMessage& message) {
        message.append(std::string(action)).appendEmptyArray("v");
    });
}

std::expected<void, SystemError> DBusApplication::quit() {
    const Deadline deadline(patience_.quitting);
    auto bus = SessionBus::connect(deadline);
    const auto process = bus ? ownerOf(*bus, object_.destination, deadline) : std::nullopt;
    if (!process) {
        return {};
    }
    // It may end before it answers, so that only its end counts.
    static_cast<void>(callOnce(
        *bus, "ActivateAction",
        [](BusMessage& message) { message.append(std::string(quitAction)).appendEmptyArray("v"); },
        SessionBus::AutoStart::no, deadline));
    if (!endsBy(*process, deadline)) {
        return std::unexpected(SystemError{SystemError::Domain::posix, ETIMEDOUT,
                                           "Blankwell+ is running and does not quit."});
    }
    return {};
}

SessionApplication::Taken DBusApplication::ask(const std::string& member,
                                               const Arguments& appendTo) const {
    const Deadline deadline(patience_.running);
    auto bus = SessionBus::beginToConnect();
    if (!bus) {
        return notTaken(bus.error().description);
    }
    auto answer = callOnce(*bus, member, appendTo, SessionBus::AutoStart::no, deadline);
    if (!answer && isUndelivered(answer.error())) {
        // Nobody has it, so that asking again asks once.
        answer = callOnce(*bus, member, appendTo, SessionBus::AutoStart::yes,
                          Deadline(patience_.starting));
    }
    return answer ? Taken() : failure(answer.error());
}

std::expected<BusMessage, BusError>
DBusApplication::callOnce(SessionBus& bus, const std::string& member, const Arguments& appendTo,
                          SessionBus::AutoStart autoStart, const Deadline& deadline) const {
    auto message = bus.request({object_.destination, object_.path, object_.interface, member});
    if (!message) {
        return std::unexpected(BusError{.message = message.error().description});
    }
    appendTo(*message);
    message->appendEmptyArray("{sv}"); // about the platform: nothing to tell
    return bus.ask(*message, autoStart, deadline);
}

} // namespace blankwell
