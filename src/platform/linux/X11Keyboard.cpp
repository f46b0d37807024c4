#include "platform/linux/X11Keyboard.h"

#include "platform/linux/X11Connection.h"

#include <algorithm>
#include <array>
#include <functional>
#include <span>

namespace blankwell {
namespace {

using Symbols = std::span<const xcb_keysym_t>;

// The names of the symbols in X11's keysymdef.h and XF86keysym.h.
constexpr xcb_keysym_t scrollLock = 0xFF14;
constexpr xcb_keysym_t terminateServer = 0xFED5;
constexpr xcb_keysym_t numLock = 0xFF7F;
constexpr xcb_keysym_t altLeft = 0xFFE9;
constexpr xcb_keysym_t altRight = 0xFFEA;
constexpr xcb_keysym_t superLeft = 0xFFEB;
constexpr xcb_keysym_t superRight = 0xFFEC;
/// XF86_Switch_VT_1 and the others that are not for programs.
constexpr xcb_keysym_t firstServerSymbol = 0x1008FE01;
constexpr xcb_keysym_t lastServerSymbol = 0x1008FEFF;

bool isServerSymbol(xcb_keysym_t symbol) {
    return symbol == terminateServer || (symbol >= firstServerSymbol && symbol <= lastServerSymbol);
}

/// The symbols on each key.
class KeySymbols {
public:
    KeySymbols(const xcb_setup_t& setup, const xcb_get_keyboard_mapping_reply_t& reply)
        : symbols_(xcb_get_keyboard_mapping_keysyms(&reply),
                   static_cast<std::size_t>(xcb_get_keyboard_mapping_keysyms_length(&reply))),
          first_(setup.min_keycode),
          perKey_(reply.keysyms_per_keycode) {}

    [[nodiscard]] Symbols of(xcb_keycode_t key) const {
        const auto start = static_cast<std::size_t>(key - first_) * perKey_;
        if (key < first_ || start + perKey_ > symbols_.size()) {
            return {};
        }
        return symbols_.subspan(start, perKey_);
    }

    /// The keys that bear a symbol of the kind.
    [[nodiscard]] X11Keyboard::Keys keysBearing(const auto& isOfTheKind) const {
        X11Keyboard::Keys keys;
        for (std::size_t key = 0; key < keys.size(); ++key) {
            keys[key] = std::ranges::any_of(of(static_cast<xcb_keycode_t>(key)), isOfTheKind);
        }
        return keys;
    }

private:
    Symbols symbols_;
    xcb_keycode_t first_;
    std::size_t perKey_;
};

/// The keys that set each of the eight modifiers.
class ModifierKeys {
public:
    explicit ModifierKeys(const xcb_get_modifier_mapping_reply_t& reply)
        : keys_(xcb_get_modifier_mapping_keycodes(&reply),
                static_cast<std::size_t>(xcb_get_modifier_mapping_keycodes_length(&reply))),
          perModifier_(reply.keycodes_per_modifier) {}

    /// The bit of the first of the modifiers without a fixed meaning that one of `keys` sets.
    [[nodiscard]] std::uint16_t modifierOf(const X11Keyboard::Keys& keys) const {
        for (std::size_t modifier = XCB_MAP_INDEX_1; modifier <= XCB_MAP_INDEX_5; ++modifier) {
            if ((keysOf(modifier) & keys).any()) {
                return static_cast<std::uint16_t>(1U << modifier);
            }
        }
        return 0;
    }

    /// The keys that set a modifier of the mask.
    [[nodiscard]] X11Keyboard::Keys keysSetting(std::uint32_t mask) const {
        X11Keyboard::Keys keys;
        for (std::size_t modifier = XCB_MAP_INDEX_SHIFT; modifier <= XCB_MAP_INDEX_5; ++modifier) {
            if ((mask & (1U << modifier)) != 0) {
                keys |= keysOf(modifier);
            }
        }
        return keys;
    }

private:
    [[nodiscard]] X11Keyboard::Keys keysOf(std::size_t modifier) const {
        X11Keyboard::Keys keys;
        for (const auto key : keys_.subspan(modifier * perModifier_, perModifier_)) {
            keys.set(key);
        }
        // The mark of a place that is not used.
        return keys.reset(0);
    }

    std::span<const xcb_keycode_t> keys_;
    std::size_t perModifier_;
};

} // namespace

std::optional<X11Keyboard> X11Keyboard::read(xcb_connection_t* connection) {
    const auto& setup = *xcb_get_setup(connection);
    const auto count = static_cast<std::uint8_t>(setup.max_keycode - setup.min_keycode + 1);
    const auto symbolsCookie = xcb_get_keyboard_mapping(connection, setup.min_keycode, count);
    const auto modifiersCookie = xcb_get_modifier_mapping(connection);
    const X11Memory<xcb_get_keyboard_mapping_reply_t> symbolsReply(
        xcb_get_keyboard_mapping_reply(connection, symbolsCookie, nullptr));
    const X11Memory<xcb_get_modifier_mapping_reply_t> modifiersReply(
        xcb_get_modifier_mapping_reply(connection, modifiersCookie, nullptr));
    if (!symbolsReply || !modifiersReply) {
        return std::nullopt;
    }
    const KeySymbols symbols(setup, *symbolsReply);
    const ModifierKeys modifiers(*modifiersReply);
    const auto bearing = [&](xcb_keysym_t wanted) {
        return symbols.keysBearing([=](xcb_keysym_t symbol) { return symbol == wanted; });
    };
    // Where left and right differ, the left one is the shortcut's.
    const auto modifierOf = [&](xcb_keysym_t left, xcb_keysym_t right) {
        const auto ofLeft = modifiers.modifierOf(bearing(left));
        return ofLeft != 0 ? ofLeft : modifiers.modifierOf(bearing(right));
    };
    const auto option = modifierOf(altLeft, altRight);
    const auto command = modifierOf(superLeft, superRight);
    const auto numLockKeys = bearing(numLock);
    const auto locks = XCB_MOD_MASK_LOCK | modifiers.modifierOf(numLockKeys) |
                       modifiers.modifierOf(bearing(scrollLock));
    return X11Keyboard{
        .option = option,
        // One bit cannot stand for both.
        .command = command == option ? std::uint16_t{0} : command,
        // What a held key of a shortcut sets cannot be told from a lock.
        .locks = static_cast<std::uint16_t>(locks & ~(option | command)),
        .serverKeys = symbols.keysBearing(isServerSymbol),
        .modifierKeys =
            modifiers.keysSetting(XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL | option | command),
        .numLockKeys = numLockKeys,
    };
}

} // namespace blankwell
