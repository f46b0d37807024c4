#include "platform/linux/MacKeyCodes.h"

#include <algorithm>
#include <array>

namespace blankwell {
namespace {

struct Key {
    std::uint32_t mac;
    std::uint32_t evdev;
};

/// In ascending order of the virtual key codes.
constexpr auto keys = std::to_array<Key>({
    {.mac = 0, .evdev = 30},    // ANSI_A: KEY_A
    {.mac = 1, .evdev = 31},    // ANSI_S: KEY_S
    {.mac = 2, .evdev = 32},    // ANSI_D: KEY_D
    {.mac = 3, .evdev = 33},    // ANSI_F: KEY_F
    {.mac = 4, .evdev = 35},    // ANSI_H: KEY_H
    {.mac = 5, .evdev = 34},    // ANSI_G: KEY_G
    {.mac = 6, .evdev = 44},    // ANSI_Z: KEY_Z
    {.mac = 7, .evdev = 45},    // ANSI_X: KEY_X
    {.mac = 8, .evdev = 46},    // ANSI_C: KEY_C
    {.mac = 9, .evdev = 47},    // ANSI_V: KEY_V
    {.mac = 10, .evdev = 170},  // ISO_Section: KEY_ISO
    {.mac = 11, .evdev = 48},   // ANSI_B: KEY_B
    {.mac = 12, .evdev = 16},   // ANSI_Q: KEY_Q
    {.mac = 13, .evdev = 17},   // ANSI_W: KEY_W
    {.mac = 14, .evdev = 18},   // ANSI_E: KEY_E
    {.mac = 15, .evdev = 19},   // ANSI_R: KEY_R
    {.mac = 16, .evdev = 21},   // ANSI_Y: KEY_Y
    {.mac = 17, .evdev = 20},   // ANSI_T: KEY_T
    {.mac = 18, .evdev = 2},    // ANSI_1: KEY_1
    {.mac = 19, .evdev = 3},    // ANSI_2: KEY_2
    {.mac = 20, .evdev = 4},    // ANSI_3: KEY_3
    {.mac = 21, .evdev = 5},    // ANSI_4: KEY_4
    {.mac = 22, .evdev = 7},    // ANSI_6: KEY_6
    {.mac = 23, .evdev = 6},    // ANSI_5: KEY_5
    {.mac = 24, .evdev = 13},   // ANSI_Equal: KEY_EQUAL
    {.mac = 25, .evdev = 10},   // ANSI_9: KEY_9
    {.mac = 26, .evdev = 8},    // ANSI_7: KEY_7
    {.mac = 27, .evdev = 12},   // ANSI_Minus: KEY_MINUS
    {.mac = 28, .evdev = 9},    // ANSI_8: KEY_8
    {.mac = 29, .evdev = 11},   // ANSI_0: KEY_0
    {.mac = 30, .evdev = 27},   // ANSI_RightBracket: KEY_RIGHTBRACE
    {.mac = 31, .evdev = 24},   // ANSI_O: KEY_O
    {.mac = 32, .evdev = 22},   // ANSI_U: KEY_U
    {.mac = 33, .evdev = 26},   // ANSI_LeftBracket: KEY_LEFTBRACE
    {.mac = 34, .evdev = 23},   // ANSI_I: KEY_I
    {.mac = 35, .evdev = 25},   // ANSI_P: KEY_P
    {.mac = 36, .evdev = 28},   // Return: KEY_ENTER
    {.mac = 37, .evdev = 38},   // ANSI_L: KEY_L
    {.mac = 38, .evdev = 36},   // ANSI_J: KEY_J
    {.mac = 39, .evdev = 40},   // ANSI_Quote: KEY_APOSTROPHE
    {.mac = 40, .evdev = 37},   // ANSI_K: KEY_K
    {.mac = 41, .evdev = 39},   // ANSI_Semicolon: KEY_SEMICOLON
    {.mac = 42, .evdev = 43},   // ANSI_Backslash: KEY_BACKSLASH
    {.mac = 43, .evdev = 51},   // ANSI_Comma: KEY_COMMA
    {.mac = 44, .evdev = 53},   // ANSI_Slash: KEY_SLASH
    {.mac = 45, .evdev = 49},   // ANSI_N: KEY_N
    {.mac = 46, .evdev = 50},   // ANSI_M: KEY_M
    {.mac = 47, .evdev = 52},   // ANSI_Period: KEY_DOT
    {.mac = 48, .evdev = 15},   // Tab: KEY_TAB
    {.mac = 49, .evdev = 57},   // Space: KEY_SPACE
    {.mac = 50, .evdev = 41},   // ANSI_Grave: KEY_GRAVE
    {.mac = 51, .evdev = 14},   // Delete: KEY_BACKSPACE
    {.mac = 53, .evdev = 1},    // Escape: KEY_ESC
    {.mac = 54, .evdev = 126},  // RightCommand: KEY_RIGHTMETA
    {.mac = 55, .evdev = 125},  // Command: KEY_LEFTMETA
    {.mac = 56, .evdev = 42},   // Shift: KEY_LEFTSHIFT
    {.mac = 57, .evdev = 58},   // CapsLock: KEY_CAPSLOCK
    {.mac = 58, .evdev = 56},   // Option: KEY_LEFTALT
    {.mac = 59, .evdev = 29},   // Control: KEY_LEFTCTRL
    {.mac = 60, .evdev = 54},   // RightShift: KEY_RIGHTSHIFT
    {.mac = 61, .evdev = 100},  // RightOption: KEY_RIGHTALT
    {.mac = 62, .evdev = 97},   // RightControl: KEY_RIGHTCTRL
    {.mac = 63, .evdev = 464},  // Function: KEY_FN
    {.mac = 64, .evdev = 187},  // F17: KEY_F17
    {.mac = 65, .evdev = 83},   // ANSI_KeypadDecimal: KEY_KPDOT
    {.mac = 67, .evdev = 55},   // ANSI_KeypadMultiply: KEY_KPASTERISK
    {.mac = 69, .evdev = 78},   // ANSI_KeypadPlus: KEY_KPPLUS
    {.mac = 71, .evdev = 69},   // ANSI_KeypadClear: KEY_NUMLOCK
    {.mac = 72, .evdev = 115},  // VolumeUp: KEY_VOLUMEUP
    {.mac = 73, .evdev = 114},  // VolumeDown: KEY_VOLUMEDOWN
    {.mac = 74, .evdev = 113},  // Mute: KEY_MUTE
    {.mac = 75, .evdev = 98},   // ANSI_KeypadDivide: KEY_KPSLASH
    {.mac = 76, .evdev = 96},   // ANSI_KeypadEnter: KEY_KPENTER
    {.mac = 78, .evdev = 74},   // ANSI_KeypadMinus: KEY_KPMINUS
    {.mac = 79, .evdev = 188},  // F18: KEY_F18
    {.mac = 80, .evdev = 189},  // F19: KEY_F19
    {.mac = 81, .evdev = 117},  // ANSI_KeypadEquals: KEY_KPEQUAL
    {.mac = 82, .evdev = 82},   // ANSI_Keypad0: KEY_KP0
    {.mac = 83, .evdev = 79},   // ANSI_Keypad1: KEY_KP1
    {.mac = 84, .evdev = 80},   // ANSI_Keypad2: KEY_KP2
    {.mac = 85, .evdev = 81},   // ANSI_Keypad3: KEY_KP3
    {.mac = 86, .evdev = 75},   // ANSI_Keypad4: KEY_KP4
    {.mac = 87, .evdev = 76},   // ANSI_Keypad5: KEY_KP5
    {.mac = 88, .evdev = 77},   // ANSI_Keypad6: KEY_KP6
    {.mac = 89, .evdev = 71},   // ANSI_Keypad7: KEY_KP7
    {.mac = 90, .evdev = 190},  // F20: KEY_F20
    {.mac = 91, .evdev = 72},   // ANSI_Keypad8: KEY_KP8
    {.mac = 92, .evdev = 73},   // ANSI_Keypad9: KEY_KP9
    {.mac = 93, .evdev = 124},  // JIS_Yen: KEY_YEN
    {.mac = 94, .evdev = 89},   // JIS_Underscore: KEY_RO
    {.mac = 95, .evdev = 95},   // JIS_KeypadComma: KEY_KPJPCOMMA
    {.mac = 96, .evdev = 63},   // F5: KEY_F5
    {.mac = 97, .evdev = 64},   // F6: KEY_F6
    {.mac = 98, .evdev = 65},   // F7: KEY_F7
    {.mac = 99, .evdev = 61},   // F3: KEY_F3
    {.mac = 100, .evdev = 66},  // F8: KEY_F8
    {.mac = 101, .evdev = 67},  // F9: KEY_F9
    {.mac = 102, .evdev = 123}, // JIS_Eisu: KEY_HANJA
    {.mac = 103, .evdev = 87},  // F11: KEY_F11
    {.mac = 104, .evdev = 122}, // JIS_Kana: KEY_HANGEUL
    {.mac = 105, .evdev = 183}, // F13: KEY_F13
    {.mac = 106, .evdev = 186}, // F16: KEY_F16
    {.mac = 107, .evdev = 184}, // F14: KEY_F14
    {.mac = 109, .evdev = 68},  // F10: KEY_F10
    {.mac = 111, .evdev = 88},  // F12: KEY_F12
    {.mac = 113, .evdev = 185}, // F15: KEY_F15
    {.mac = 114, .evdev = 138}, // Help: KEY_HELP
    {.mac = 115, .evdev = 102}, // Home: KEY_HOME
    {.mac = 116, .evdev = 104}, // PageUp: KEY_PAGEUP
    {.mac = 117, .evdev = 111}, // ForwardDelete: KEY_DELETE
    {.mac = 118, .evdev = 62},  // F4: KEY_F4
    {.mac = 119, .evdev = 107}, // End: KEY_END
    {.mac = 120, .evdev = 60},  // F2: KEY_F2
    {.mac = 121, .evdev = 109}, // PageDown: KEY_PAGEDOWN
    {.mac = 122, .evdev = 59},  // F1: KEY_F1
    {.mac = 123, .evdev = 105}, // LeftArrow: KEY_LEFT
    {.mac = 124, .evdev = 106}, // RightArrow: KEY_RIGHT
    {.mac = 125, .evdev = 108}, // DownArrow: KEY_DOWN
    {.mac = 126, .evdev = 103}, // UpArrow: KEY_UP
});

static_assert(std::ranges::is_sorted(keys, std::ranges::less_equal(), &Key::mac));

/// How far X11's key codes stand above those of the kernel: X11 keeps the first eight for itself.
constexpr std::uint32_t x11Offset = 8;

} // namespace

std::optional<std::uint32_t> evdevCode(std::uint32_t macKeyCode) {
    const auto* const key = std::ranges::lower_bound(keys, macKeyCode, {}, &Key::mac);
    if (key == keys.end() || key->mac != macKeyCode) {
        return std::nullopt;
    }
    return key->evdev;
}

std::optional<std::uint32_t> macKeyCodeOfEvdev(std::uint32_t evdevCode) {
    const auto* const key = std::ranges::find(keys, evdevCode, &Key::evdev);
    return key == keys.end() ? std::nullopt : std::optional(key->mac);
}

std::optional<std::uint32_t> x11KeyCode(std::uint32_t macKeyCode) {
    const auto code = evdevCode(macKeyCode);
    return code ? std::optional(*code + x11Offset) : std::nullopt;
}

std::optional<std::uint32_t> macKeyCodeOfX11(std::uint32_t x11KeyCode) {
    return x11KeyCode < x11Offset ? std::nullopt : macKeyCodeOfEvdev(x11KeyCode - x11Offset);
}

} // namespace blankwell
