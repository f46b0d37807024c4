#include "platform/linux/X11GlobalKeys.h"

#include "platform/linux/HotKeyStatuses.h"
#include "platform/linux/MacKeyCodes.h"

#include <array>
#include <utility>

namespace blankwell {
namespace {

/// The bits of an event's state that are modifiers; the others are mouse buttons and the layout.
constexpr std::uint16_t allModifiers = 0xFF;

struct Modifier {
    std::uint32_t carbon;
    /// 0 where the keyboard does not have it.
    std::uint16_t x11;
};

std::array<Modifier, 4> modifiersOf(const X11Keyboard& keyboard) {
    return {{
        {.carbon = KeyCombination::cmdKey, .x11 = keyboard.command},
        {.carbon = KeyCombination::shiftKey, .x11 = XCB_MOD_MASK_SHIFT},
        {.carbon = KeyCombination::optionKey, .x11 = keyboard.option},
        {.carbon = KeyCombination::controlKey, .x11 = XCB_MOD_MASK_CONTROL},
    }};
}

std::expected<std::uint16_t, HotKeyStatus> x11Modifiers(const X11Keyboard& keyboard,
                                                        std::uint32_t carbonModifiers) {
    std::uint16_t mask = 0;
    for (const auto& modifier : modifiersOf(keyboard)) {
        if ((carbonModifiers & modifier.carbon) == 0) {
            continue;
        }
        if (modifier.x11 == 0) {
            return std::unexpected(hotKeyNoModifierErr);
        }
        mask |= modifier.x11;
        carbonModifiers &= ~modifier.carbon;
    }
    return carbonModifiers == 0 ? std::expected<std::uint16_t, HotKeyStatus>(mask)
                                : std::unexpected(eventHotKeyInvalidErr);
}

/// Nothing where a modifier is held that the Macintosh does not have.
std::optional<std::uint32_t> carbonModifiers(const X11Keyboard& keyboard, std::uint16_t state) {
    std::uint32_t mask = 0;
    auto rest = state & allModifiers & ~keyboard.locks;
    for (const auto& modifier : modifiersOf(keyboard)) {
        if ((rest & modifier.x11) != 0) {
            mask |= modifier.carbon;
            rest &= ~modifier.x11;
        }
    }
    return rest == 0 ? std::optional(mask) : std::nullopt;
}

/// Whether the X server keeps the press to itself, or it changes how the keyboard works.
bool isReserved(const X11Keyboard& keyboard, const X11KeyCombination& combination) {
    const auto controlAlt = XCB_MOD_MASK_CONTROL | keyboard.option;
    const auto held = combination.modifiers & (controlAlt | XCB_MOD_MASK_SHIFT);
    return keyboard.numLockKeys[combination.key] ||
           (keyboard.serverKeys[combination.key] && held == controlAlt);
}

} // namespace

std::unique_ptr<X11GlobalKeys> X11GlobalKeys::connect(const std::string& display) {
    X11Connection connection(xcb_connect(display.empty() ? nullptr : display.c_str(), nullptr));
    if (xcb_connection_has_error(connection.get()) != 0) {
        return nullptr;
    }
    return std::unique_ptr<X11GlobalKeys>(new X11GlobalKeys(std::move(connection)));
}

// Events of the keyboard are asked for before its map is read, so that no change is missed.
X11GlobalKeys::X11GlobalKeys(X11Connection connection)
    : connection_(std::move(connection)),
      keyboardEvents_(connection_.get()),
      grabs_(connection_.get()),
      keyboard_(X11Keyboard::read(connection_.get()).value_or(X11Keyboard{})) {}

int X11GlobalKeys::descriptor() const {
    return xcb_get_file_descriptor(connection_.get());
}

bool X11GlobalKeys::isConnected() const {
    return xcb_connection_has_error(connection_.get()) == 0;
}

HotKeyStatus X11GlobalKeys::take(const KeyCombination& combination) {
    if (!isConnected()) {
        return hotKeyDisplayErr;
    }
    const auto keys = onThisKeyboard(combination);
    return keys ? grabs_.take(*keys, keyboard_.locks) : keys.error();
}

void X11GlobalKeys::release(const KeyCombination& combination) {
    if (const auto keys = onThisKeyboard(combination)) {
        grabs_.release(*keys, keyboard_.locks);
    }
}

void X11GlobalKeys::releaseAll() {
    grabs_.releaseAll();
}

std::optional<X11GlobalKeys::Event> X11GlobalKeys::nextEvent() {
    while (const X11Memory<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
        if (auto understood = understand(*event)) {
            return understood;
        }
    }
    return std::nullopt;
}

bool X11GlobalKeys::readMap() {
    const auto read = X11Keyboard::read(connection_.get());
    return read && *read != std::exchange(keyboard_, *read);
}

std::expected<X11KeyCombination, HotKeyStatus>
X11GlobalKeys::onThisKeyboard(const KeyCombination& combination) const {
    const auto& setup = *xcb_get_setup(connection_.get());
    const auto key = x11KeyCode(combination.keyCode);
    if (!key || *key < setup.min_keycode || *key > setup.max_keycode ||
        keyboard_.modifierKeys[*key]) {
        return std::unexpected(eventHotKeyInvalidErr);
    }
    const auto modifiers = x11Modifiers(keyboard_, combination.carbonModifiers);
    if (!modifiers) {
        return std::unexpected(modifiers.error());
    }
    const X11KeyCombination found{.key = static_cast<std::uint8_t>(*key), .modifiers = *modifiers};
    if (isReserved(keyboard_, found)) {
        return std::unexpected(hotKeyReservedErr);
    }
    return found;
}

std::optional<X11GlobalKeys::Event> X11GlobalKeys::understand(const xcb_generic_event_t& event) {
    const auto& keyEvent = reinterpret_cast<const xcb_key_press_event_t&>(event);
    if (event.response_type == XCB_KEY_PRESS) {
        return press(keyEvent);
    }
    if (event.response_type == XCB_KEY_RELEASE) {
        lastRelease_ = {.key = keyEvent.detail, .time = keyEvent.time};
        return std::nullopt;
    }
    return keyboardEvents_.announcesNewMap(event) ? std::optional<Event>(MapChange{})
                                                  : std::nullopt;
}

std::optional<X11GlobalKeys::Event> X11GlobalKeys::press(const xcb_key_press_event_t& event) const {
    // A held key repeats itself as a release and a press in the same moment.
    if (lastRelease_ == KeyTime{.key = event.detail, .time = event.time}) {
        return std::nullopt;
    }
    const auto keyCode = macKeyCodeOfX11(event.detail);
    const auto modifiers = carbonModifiers(keyboard_, event.state);
    if (!keyCode || !modifiers) {
        return std::nullopt;
    }
    return KeyCombination{.keyCode = *keyCode, .carbonModifiers = *modifiers};
}

} // namespace blankwell
