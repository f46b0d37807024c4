#pragma once

#include "platform/HotKeyService.h"

#include <cstdint>
#include <vector>

extern "C" struct xcb_connection_t;

namespace blankwell {

/// A key and exactly these modifiers, in the X server's numbers.
struct X11KeyCombination {
    std::uint8_t key = 0;
    std::uint16_t modifiers = 0;

    friend bool operator==(const X11KeyCombination&, const X11KeyCombination&) = default;
};

/// The key combinations that an X server sends to one connection alone, whichever window has the
/// focus and whatever locks are on. They end with the connection.
class X11KeyGrabs {
public:
    /// `connection` must outlive this object, and not be one that failed to connect.
    explicit X11KeyGrabs(xcb_connection_t* connection);

    /// Takes `combination` with every subset of the modifiers `locks`: all of them, or none and a
    /// status. Taking again what this connection has taken succeeds.
    [[nodiscard]] HotKeyStatus take(const X11KeyCombination& combination, std::uint16_t locks);

    void release(const X11KeyCombination& combination, std::uint16_t locks);

    void releaseAll();

private:
    xcb_connection_t* connection_;
    std::vector<std::uint32_t> roots_;
};

} // namespace blankwell
