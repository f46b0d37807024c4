#pragma once

#include "platform/SessionApplication.h"
#include "platform/linux/BusMessage.h"
#include "platform/linux/SessionBus.h"

#include <chrono>
#include <functional>

namespace blankwell {

/// The application behind `org.freedesktop.Application` on the session bus: the interface of the
/// Desktop Entry Specification, section "D-Bus Activation".
class DBusApplication : public SessionApplication {
public:
    /// How long to wait.
    struct Patience {
        /// For one that runs. It takes note at once unless it is busy.
        std::chrono::milliseconds running{5'000};
        /// For one that the bus starts: as long as the bus itself waits by default.
        std::chrono::milliseconds starting{25'000};
        /// For one that ends: it finishes what it has begun.
        std::chrono::milliseconds quitting{10'000};
    };

    /// Asks the application that is called `name` on the bus, each time over a connection of its
    /// own.
    explicit DBusApplication(std::string_view name) : DBusApplication(name, Patience{}) {}

    DBusApplication(std::string_view name, Patience patience);

    [[nodiscard]] Taken activate() override;
    [[nodiscard]] Taken open(const std::vector<std::string>& urls) override;
    [[nodiscard]] Taken activateAction(std::string_view action) override;

    /// Without a session bus there is none to ask, and nothing is done.
    [[nodiscard]] std::expected<void, SystemError> quit() override;

private:
    using Arguments = std::function<void(BusMessage&)>;

    [[nodiscard]] Taken ask(const std::string& member, const Arguments& appendTo) const;
    [[nodiscard]] std::expected<BusMessage, BusError>
    callOnce(SessionBus& bus, const std::string& member, const Arguments& appendTo,
             SessionBus::AutoStart autoStart, const Deadline& deadline) const;

    BusMethod object_;
    Patience patience_;
};

} // namespace blankwell
