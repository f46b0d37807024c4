#pragma once

#include <bitset>
#include <cstdint>
#include <optional>

extern "C" struct xcb_connection_t;

namespace blankwell {

/// What hot keys need to know of the keyboard map of an X server. A map is the user's to change, so
/// nothing of it is taken for granted but the places of Shift, Control and Caps Lock, which the
/// protocol fixes.
struct X11Keyboard {
    using Keys = std::bitset<256>;

    /// The bit of the modifier that Alt sets, which is the option key; 0 where no key does.
    std::uint16_t option = 0;
    /// The bit of the modifier that Super sets, which is the command key; 0 where no key does.
    std::uint16_t command = 0;
    /// The bits that stay set without a key held: Caps Lock, and Num Lock and Scroll Lock where
    /// there is a modifier for them.
    std::uint16_t locks = 0;
    /// The keys that make the X server act, switching to a console for example, when they are
    /// pressed with Control and Alt.
    Keys serverKeys;
    /// The keys that set Shift, Control, Alt or Super.
    Keys modifierKeys;
    /// The keys that switch Num Lock.
    Keys numLockKeys;

    friend bool operator==(const X11Keyboard&, const X11Keyboard&) = default;

    /// Nothing if the connection is lost.
    [[nodiscard]] static std::optional<X11Keyboard> read(xcb_connection_t* connection);
};

} // namespace blankwell
