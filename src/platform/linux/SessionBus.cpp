#include "platform/linux/SessionBus.h"

#include "platform/linux/SystemErrors.h"

#include <fmt/core.h>
#include <systemd/sd-bus.h>

#include <cerrno>
#include <limits>
#include <optional>

namespace blankwell {
namespace {

constexpr auto unreachable = "The session bus cannot be reached";

std::unexpected<SystemError> failure(int result, std::string_view what) {
    return std::unexpected(posixError(-result, what));
}

std::uint64_t microseconds(const Deadline& deadline) {
    return static_cast<std::uint64_t>(deadline.remaining().count());
}

/// What a call has come to; nothing before it has.
using Answer = std::expected<BusMessage, BusError>;

int takeAnswer(sd_bus_message* message, void* answer, sd_bus_error* /*unused*/) {
    auto& taken = *static_cast<std::optional<Answer>*>(answer);
    if (const auto* const error = sd_bus_message_get_error(message)) {
        taken =
            std::unexpected(BusError{error->name, error->message == nullptr ? "" : error->message});
    } else {
        taken = BusMessage(sd_bus_message_ref(message));
    }
    return 0;
}

struct ForgetCall {
    void operator()(sd_bus_slot* call) const { sd_bus_slot_unref(call); }
};

using PendingCall = std::unique_ptr<sd_bus_slot, ForgetCall>;

} // namespace

void SessionBus::Close::operator()(sd_bus* bus) const {
    sd_bus_close_unref(bus);
}

std::expected<SessionBus, SystemError> SessionBus::connect(const Deadline& deadline) {
    auto bus = beginToConnect();
    return bus ? greeted(*std::move(bus), deadline) : std::move(bus);
}

std::expected<SessionBus, SystemError> SessionBus::beginToConnect() {
    sd_bus* opened = nullptr;
    if (const int result = sd_bus_open_user(&opened); result < 0) {
        return failure(result, unreachable);
    }
    return SessionBus(opened);
}

std::expected<SessionBus, SystemError> SessionBus::connectTo(const std::string& address,
                                                             const Deadline& deadline) {
    sd_bus* opened = nullptr;
    if (const int result = sd_bus_new(&opened); result < 0) {
        return failure(result, unreachable);
    }
    SessionBus bus(opened);
    for (const int result : {sd_bus_set_address(opened, address.c_str()),
                             sd_bus_set_bus_client(opened, 1), sd_bus_start(opened)}) {
        if (result < 0) {
            return failure(result, unreachable);
        }
    }
    return greeted(std::move(bus), deadline);
}

std::expected<SessionBus, SystemError> SessionBus::greeted(SessionBus bus,
                                                           const Deadline& deadline) {
    // sd-bus itself would wait for the bus's greeting without an end.
    const auto isReady = [&] { return sd_bus_is_ready(bus.bus_.get()) > 0; };
    if (auto isGreeted = bus.processUntil(isReady, deadline); !isGreeted) {
        return std::unexpected(std::move(isGreeted).error());
    }
    return bus;
}

bool SessionBus::isOpen() {
    int result = 1;
    while (result > 0) {
        result = sd_bus_process(bus_.get(), nullptr);
    }
    return result == 0 && sd_bus_is_open(bus_.get()) > 0;
}

std::expected<std::vector<std::string>, SystemError>
SessionBus::ownedNames(const Deadline& deadline) {
    return listNames("ListNames", deadline);
}

std::expected<std::vector<std::string>, SystemError>
SessionBus::activatableNames(const Deadline& deadline) {
    return listNames("ListActivatableNames", deadline);
}

std::optional<std::uint32_t> SessionBus::processOf(const std::string& name,
                                                   const Deadline& deadline) {
    auto message = request({.destination = "org.freedesktop.DBus",
                            .path = "/org/freedesktop/DBus",
                            .interface = "org.freedesktop.DBus",
                            .member = "GetConnectionUnixProcessID"});
    if (!message) {
        return std::nullopt;
    }
    auto answer = call(message->append(name), deadline);
    return answer ? answer->readUnsigned() : std::nullopt;
}

std::expected<BusMessage, SystemError> SessionBus::request(const BusMethod& method) const {
    sd_bus_message* message = nullptr;
    const int result = sd_bus_message_new_method_call(
        bus_.get(), &message, method.destination.c_str(), method.path.c_str(),
        method.interface.c_str(), method.member.c_str());
    if (result < 0) {
        return failure(result, fmt::format("{} cannot be asked", method.destination));
    }
    return BusMessage(message);
}

std::expected<BusMessage, SystemError> SessionBus::call(const BusMessage& message,
                                                        const Deadline& deadline) {
    const auto* destination = sd_bus_message_get_destination(message.get());
    const auto what = fmt::format("{} does not answer", destination);
    if (message.status() < 0) {
        return failure(message.status(), what);
    }
    // To sd-bus a time of zero means its own default, which is far too long.
    if (deadline.hasPassed()) {
        return failure(-ETIMEDOUT, what);
    }
    sd_bus_message_set_auto_start(message.get(), 0);
    sd_bus_message* reply = nullptr;
    const int result =
        sd_bus_call(bus_.get(), message.get(), microseconds(deadline), nullptr, &reply);
    if (result < 0) {
        return failure(result, what);
    }
    return BusMessage(reply);
}

std::expected<BusMessage, BusError> SessionBus::ask(const BusMessage& message, AutoStart autoStart,
                                                    const Deadline& deadline) {
    const auto wait = std::numeric_limits<std::uint64_t>::max(); // the deadline ends it
    std::optional<Answer> answer;
    sd_bus_slot* slot = nullptr;
    int result = message.status();
    if (result >= 0) {
        sd_bus_message_set_auto_start(message.get(), autoStart == AutoStart::yes ? 1 : 0);
        result = sd_bus_call_async(bus_.get(), &slot, message.get(), takeAnswer, &answer, wait);
    }
    if (result < 0) {
        return std::unexpected(BusError{.message = posixError(-result, unreachable).description});
    }
    const PendingCall call(slot);
    bool isSent = false;
    const auto isAnswered = [&] {
        isSent = isSent || hasWrittenAll();
        return answer.has_value();
    };
    if (const auto done = processUntil(isAnswered, deadline); !done) {
        answer = std::unexpected(BusError{SD_BUS_ERROR_NO_REPLY, done.error().description});
    }
    if (!isSent && !*answer) {
        answer->error().name.clear();
    }
    return *std::move(answer);
}

std::expected<void, SystemError> SessionBus::send(const BusMessage& message, AutoStart autoStart,
                                                  const Deadline& deadline) {
    sd_bus_message_set_auto_start(message.get(), autoStart == AutoStart::yes ? 1 : 0);
    sd_bus_message_set_expect_reply(message.get(), 0);
    int result = message.status();
    if (result >= 0) {
        result = sd_bus_send(bus_.get(), message.get(), nullptr);
    }
    if (result < 0) {
        return failure(result, unreachable);
    }
    return processUntil([this] { return hasWrittenAll(); }, deadline);
}

bool SessionBus::hasWrittenAll() const {
    std::uint64_t queued = 0;
    return sd_bus_get_n_queued_write(bus_.get(), &queued) >= 0 && queued == 0;
}

std::expected<void, SystemError> SessionBus::processUntil(const std::function<bool()>& isDone,
                                                          const Deadline& deadline) {
    while (!isDone()) {
        int result = sd_bus_process(bus_.get(), nullptr);
        if (result == 0 && deadline.hasPassed()) {
            result = -ETIMEDOUT;
        } else if (result == 0) {
            result = sd_bus_wait(bus_.get(), microseconds(deadline));
        }
        if (result < 0 && result != -EINTR) {
            return failure(result, unreachable);
        }
    }
    return {};
}

std::expected<std::vector<std::string>, SystemError>
SessionBus::listNames(std::string member, const Deadline& deadline) {
    const auto message = request({.destination = "org.freedesktop.DBus",
                                  .path = "/org/freedesktop/DBus",
                                  .interface = "org.freedesktop.DBus",
                                  .member = std::move(member)});
    if (!message) {
        return std::unexpected(message.error());
    }
    auto reply = call(*message, deadline);
    if (!reply) {
        return std::unexpected(std::move(reply).error());
    }
    auto names = reply->readStrings();
    if (!names) {
        return failure(-EBADMSG, unreachable);
    }
    return *std::move(names);
}

} // namespace blankwell
