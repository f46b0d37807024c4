#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <optional>

namespace blankwell {

/// The events that tell of a changed keyboard map: those of the core protocol, and those of its
/// keyboard extension, which alone tell of some changes.
class X11KeyboardEvents {
public:
    /// Has the events sent to `connection`. Without the extension there are those of the core.
    explicit X11KeyboardEvents(xcb_connection_t* connection);

    /// Whether after `event` the keyboard map has to be read again.
    [[nodiscard]] bool announcesNewMap(const xcb_generic_event_t& event) const;

private:
    /// The type of all the extension's events.
    std::optional<std::uint8_t> extensionType_;
};

} // namespace blankwell
