#pragma once

#include <string>
#include <string_view>

namespace blankwell {

/// Which desktop session a process belongs to, by what it was started with. A user can have several
/// at a time.
struct SessionAddress {
    /// Of the session bus; empty where the process has none.
    std::string bus;
    /// The X server, without the number of a screen; empty for none.
    std::string display;
    /// The Wayland server; empty for none.
    std::string waylandDisplay;

    /// By an environment: variables as NAME=VALUE, each ended by a zero byte.
    [[nodiscard]] static SessionAddress parse(std::string_view environment);

    /// Of this process, by its environment as it is now.
    [[nodiscard]] static SessionAddress own();

    /// Whether both are of one session: they share the bus, and no display contradicts that.
    [[nodiscard]] bool isSameSession(const SessionAddress& other) const;

    friend bool operator==(const SessionAddress&, const SessionAddress&) = default;
};

} // namespace blankwell
