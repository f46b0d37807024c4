#pragma once

#include "platform/HotKeyService.h"
#include "platform/linux/KeyCombination.h"
#include "platform/linux/X11Connection.h"
#include "platform/linux/X11KeyGrabs.h"
#include "platform/linux/X11Keyboard.h"
#include "platform/linux/X11KeyboardEvents.h"

#include <cstdint>
#include <expected>
#include <memory>
#include <optional>
#include <string>
#include <variant>

namespace blankwell {

/// The keyboard of an X server, of which combinations can be taken away from all other programs.
///
/// Once the X server is gone every operation is harmless, and taking fails.
class X11GlobalKeys {
public:
    /// The keyboard map may be another one.
    struct MapChange {};

    using Event = std::variant<KeyCombination, MapChange>;

    /// Null where no X server is to be had at `display`, or where that is empty at what `DISPLAY`
    /// names.
    [[nodiscard]] static std::unique_ptr<X11GlobalKeys> connect(const std::string& display);

    X11GlobalKeys(const X11GlobalKeys&) = delete;
    X11GlobalKeys& operator=(const X11GlobalKeys&) = delete;

    /// Readable when there is something to read from the X server. Operations other than
    /// `nextEvent()` read too: after them there can be events though this is not readable.
    [[nodiscard]] int descriptor() const;

    [[nodiscard]] bool isConnected() const;

    [[nodiscard]] HotKeyStatus take(const KeyCombination& combination);
    void release(const KeyCombination& combination);
    void releaseAll();

    /// The next press of a key, the repeated ones of a held key left out, or change of the map;
    /// nothing when there is none yet. A press need not be of a combination that was taken.
    [[nodiscard]] std::optional<Event> nextEvent();

    /// Whether the map differs in what matters from when it was read last. Then what was taken has
    /// to be released and taken again.
    [[nodiscard]] bool readMap();

private:
    /// A key at the X server's time in milliseconds.
    struct KeyTime {
        std::uint8_t key = 0;
        std::uint32_t time = 0;

        friend bool operator==(const KeyTime&, const KeyTime&) = default;
    };

    explicit X11GlobalKeys(X11Connection connection);

    [[nodiscard]] std::expected<X11KeyCombination, HotKeyStatus>
    onThisKeyboard(const KeyCombination& combination) const;
    [[nodiscard]] std::optional<Event> understand(const xcb_generic_event_t& event);
    [[nodiscard]] std::optional<Event> press(const xcb_key_press_event_t& event) const;

    X11Connection connection_;
    X11KeyboardEvents keyboardEvents_;
    X11KeyGrabs grabs_;
    X11Keyboard keyboard_;
    KeyTime lastRelease_;
};

} // namespace blankwell
