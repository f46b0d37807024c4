#pragma once

#include "platform/SystemError.h"
#include "platform/linux/BusMessage.h"
#include "platform/linux/Deadline.h"

#include <cstdint>
#include <expected>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

extern "C" struct sd_bus;

namespace blankwell {

/// Why a call has no answer.
struct BusError {
    /// As the bus names errors; empty where the message was never sent.
    std::string name;
    /// From the program that reports the error, for people.
    std::string message;

    [[nodiscard]] bool wasNeverSent() const { return name.empty(); }
};

/// One connection to the user's session bus. Everything that waits, waits until a deadline at the
/// longest, even if the bus itself hangs. Belongs to the thread that connected it.
///
/// Errors are of the POSIX domain; `ETIMEDOUT` where the deadline passed.
class SessionBus {
public:
    /// Whether a message to a name that nobody owns starts the program registered for it.
    enum class AutoStart { no, yes };

    /// Connects to the bus that the environment names.
    static std::expected<SessionBus, SystemError> connect(const Deadline& deadline);

    /// Begins to connect to it and does not wait: what is asked first goes out with the greeting.
    static std::expected<SessionBus, SystemError> beginToConnect();

    /// Connects to another bus, at `address`.
    static std::expected<SessionBus, SystemError> connectTo(const std::string& address,
                                                            const Deadline& deadline);

    /// Whether the connection still stands. Does not wait.
    [[nodiscard]] bool isOpen();

    /// The names that programs own now. Asks the bus only.
    std::expected<std::vector<std::string>, SystemError> ownedNames(const Deadline& deadline);

    /// The names that the bus knows how to start a program for. Asks the bus only.
    std::expected<std::vector<std::string>, SystemError> activatableNames(const Deadline& deadline);

    /// The id of the process that owns `name`; nothing where none does, or the bus does not say.
    /// Asks the bus only.
    std::optional<std::uint32_t> processOf(const std::string& name, const Deadline& deadline);

    /// A call of `method` that arguments can be appended to. Fails where a part of `method` is not
    /// what D-Bus allows.
    [[nodiscard]] std::expected<BusMessage, SystemError> request(const BusMethod& method) const;

    /// Sends `message` and waits for the answer. Starts nothing.
    std::expected<BusMessage, SystemError> call(const BusMessage& message,
                                                const Deadline& deadline);

    /// As `call`, for who must know by what error the call failed.
    std::expected<BusMessage, BusError> ask(const BusMessage& message, AutoStart autoStart,
                                            const Deadline& deadline);

    /// Hands `message` to the bus and asks for no answer. Where that starts a program, the bus
    /// delivers it only if this connection still stands when the program is up.
    std::expected<void, SystemError> send(const BusMessage& message, AutoStart autoStart,
                                          const Deadline& deadline);

private:
    struct Close {
        void operator()(sd_bus* bus) const;
    };

    explicit SessionBus(sd_bus* bus) : bus_(bus) {}

    static std::expected<SessionBus, SystemError> greeted(SessionBus bus, const Deadline& deadline);
    [[nodiscard]] bool hasWrittenAll() const;
    std::expected<void, SystemError> processUntil(const std::function<bool()>& isDone,
                                                  const Deadline& deadline);
    std::expected<std::vector<std::string>, SystemError> listNames(std::string member,
                                                                   const Deadline& deadline);

    std::unique_ptr<sd_bus, Close> bus_;
};

} // namespace blankwell
