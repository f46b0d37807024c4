#pragma once

#include "platform/SystemError.h"
#include "platform/linux/BusMessage.h"
#include "platform/linux/FileDescriptor.h"

#include <chrono>
#include <expected>
#include <functional>
#include <memory>
#include <string>

extern "C" {
struct sd_bus;
struct sd_bus_message;
}

namespace blankwell {

/// A connection to the user's session bus that never waits: answers and signals come when an event
/// loop that watches `descriptor()` calls `processEvents()`.
///
/// After the bus has gone away calls fail; those under way may stay without an answer. Handlers
/// must not destroy this object. Belongs to one thread.
class WatchedBus {
public:
    /// Errors are of the POSIX domain.
    using Answer = std::expected<BusMessage, SystemError>;
    using AnswerHandler = std::move_only_function<void(Answer)>;
    using SignalHandler = std::function<void(BusMessage&)>;

    /// Begins to connect to the bus that the environment names. `onSignal` hears of every signal
    /// that arrives, whoever sent it.
    explicit WatchedBus(SignalHandler onSignal);
    ~WatchedBus();

    WatchedBus(const WatchedBus&) = delete;
    WatchedBus& operator=(const WatchedBus&) = delete;

    /// Whether the bus may still be there. Once it is not, nothing arrives any more.
    [[nodiscard]] bool isConnected() const { return bus_ != nullptr; }

    /// The name that the bus has given this connection; empty until it has.
    [[nodiscard]] std::string uniqueName() const;

    /// A call of `method` that arguments can be appended to. Fails without a connection, and where
    /// a part of `method` is not what D-Bus allows.
    [[nodiscard]] std::expected<BusMessage, SystemError> request(const BusMethod& method) const;

    /// Sends `message`, starting the program that is asked where it does not run, and gives the
    /// answer to `handler` when it comes, or an error at once where nothing can be sent. An answer
    /// that takes longer than `patience` is `ETIMEDOUT`. Not called after the end of this object.
    void call(const BusMessage& message, std::chrono::milliseconds patience, AnswerHandler handler);

    /// Sends `message` and takes no answer.
    void send(const BusMessage& message);

    /// Asks the bus for the signals that match `rule`, a match rule of D-Bus.
    void addMatch(const std::string& rule);

    /// Makes the descriptor readable, so that the event loop calls `processEvents()`.
    void wakeUp() const;

    /// Does so once, after `time`. Replaces the previous such time.
    void wakeUpAfter(std::chrono::milliseconds time) const;

    /// Readable, and stays so, while there is something for `processEvents()`.
    [[nodiscard]] int descriptor() const { return readiness_.get(); }

    /// Deals with what has arrived, up to a bounded number of messages, and calls the handlers.
    void processEvents();

private:
    struct Close {
        void operator()(sd_bus* bus) const;
    };

    void disconnect();
    void updateReadiness() const;
    void watch(int descriptor, std::uint32_t events) const;

    std::unique_ptr<SignalHandler> onSignal_;
    FileDescriptor wakeUps_;
    FileDescriptor alarm_;
    FileDescriptor timer_;
    FileDescriptor readiness_;
    /// Null where there is no bus, or none any more.
    std::unique_ptr<sd_bus, Close> bus_;
};

} // namespace blankwell
