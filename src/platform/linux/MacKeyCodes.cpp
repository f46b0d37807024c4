#include "platform/linux/MacKeyCodes.h"

#include <algorithm>
#include <array>

namespace blankwell {
namespace {

struct Key {
    std::uint32_t macKeyCode;
    std::uint32_t evdevCode;
};

/// In ascending order of the virtual key codes.
constexpr auto keys = std::to_array<Key>({
    {0, 30},    // ANSI_A: KEY_A
    {1, 31},    // ANSI_S: KEY_S
    {2, 32},    // ANSI_D: KEY_D
    {3, 33},    // ANSI_F: KEY_F
    {4, 35},    // ANSI_H: KEY_H
    {5, 34},    // ANSI_G: KEY_G
    {6, 44},    // ANSI_Z: KEY_Z
    {7, 45},    // ANSI_X: KEY_X
    {8, 46},    // ANSI_C: KEY_C
    {9, 47},    // ANSI_V: KEY_V
    {10, 170},  // ISO_Section: KEY_ISO
    {11, 48},   // ANSI_B: KEY_B
    {12, 16},   // ANSI_Q: KEY_Q
    {13, 17},   // ANSI_W: KEY_W
    {14, 18},   // ANSI_E: KEY_E
    {15, 19},   // ANSI_R: KEY_R
    {16, 21},   // ANSI_Y: KEY_Y
    {17, 20},   // ANSI_T: KEY_T
    {18, 2},    // ANSI_1: KEY_1
    {19, 3},    // ANSI_2: KEY_2
    {20, 4},    // ANSI_3: KEY_3
    {21, 5},    // ANSI_4: KEY_4
    {22, 7},    // ANSI_6: KEY_6
    {23, 6},    // ANSI_5: KEY_5
    {24, 13},   // ANSI_Equal: KEY_EQUAL
    {25, 10},   // ANSI_9: KEY_9
    {26, 8},    // ANSI_7: KEY_7
    {27, 12},   // ANSI_Minus: KEY_MINUS
    {28, 9},    // ANSI_8: KEY_8
    {29, 11},   // ANSI_0: KEY_0
    {30, 27},   // ANSI_RightBracket: KEY_RIGHTBRACE
    {31, 24},   // ANSI_O: KEY_O
    {32, 22},   // ANSI_U: KEY_U
    {33, 26},   // ANSI_LeftBracket: KEY_LEFTBRACE
    {34, 23},   // ANSI_I: KEY_I
    {35, 25},   // ANSI_P: KEY_P
    {36, 28},   // Return: KEY_ENTER
    {37, 38},   // ANSI_L: KEY_L
    {38, 36},   // ANSI_J: KEY_J
    {39, 40},   // ANSI_Quote: KEY_APOSTROPHE
    {40, 37},   // ANSI_K: KEY_K
    {41, 39},   // ANSI_Semicolon: KEY_SEMICOLON
    {42, 43},   // ANSI_Backslash: KEY_BACKSLASH
    {43, 51},   // ANSI_Comma: KEY_COMMA
    {44, 53},   // ANSI_Slash: KEY_SLASH
    {45, 49},   // ANSI_N: KEY_N
    {46, 50},   // ANSI_M: KEY_M
    {47, 52},   // ANSI_Period: KEY_DOT
    {48, 15},   // Tab: KEY_TAB
    {49, 57},   // Space: KEY_SPACE
    {50, 41},   // ANSI_Grave: KEY_GRAVE
    {51, 14},   // Delete: KEY_BACKSPACE
    {53, 1},    // Escape: KEY_ESC
    {54, 126},  // RightCommand: KEY_RIGHTMETA
    {55, 125},  // Command: KEY_LEFTMETA
    {56, 42},   // Shift: KEY_LEFTSHIFT
    {57, 58},   // CapsLock: KEY_CAPSLOCK
    {58, 56},   // Option: KEY_LEFTALT
    {59, 29},   // Control: KEY_LEFTCTRL
    {60, 54},   // RightShift: KEY_RIGHTSHIFT
    {61, 100},  // RightOption: KEY_RIGHTALT
    {62, 97},   // RightControl: KEY_RIGHTCTRL
    {63, 464},  // Function: KEY_FN
    {64, 187},  // F17: KEY_F17
    {65, 83},   // ANSI_KeypadDecimal: KEY_KPDOT
    {67, 55},   // ANSI_KeypadMultiply: KEY_KPASTERISK
    {69, 78},   // ANSI_KeypadPlus: KEY_KPPLUS
    {71, 69},   // ANSI_KeypadClear: KEY_NUMLOCK
    {72, 115},  // VolumeUp: KEY_VOLUMEUP
    {73, 114},  // VolumeDown: KEY_VOLUMEDOWN
    {74, 113},  // Mute: KEY_MUTE
    {75, 98},   // ANSI_KeypadDivide: KEY_KPSLASH
    {76, 96},   // ANSI_KeypadEnter: KEY_KPENTER
    {78, 74},   // ANSI_KeypadMinus: KEY_KPMINUS
    {79, 188},  // F18: KEY_F18
    {80, 189},  // F19: KEY_F19
    {81, 117},  // ANSI_KeypadEquals: KEY_KPEQUAL
    {82, 82},   // ANSI_Keypad0: KEY_KP0
    {83, 79},   // ANSI_Keypad1: KEY_KP1
    {84, 80},   // ANSI_Keypad2: KEY_KP2
    {85, 81},   // ANSI_Keypad3: KEY_KP3
    {86, 75},   // ANSI_Keypad4: KEY_KP4
    {87, 76},   // ANSI_Keypad5: KEY_KP5
    {88, 77},   // ANSI_Keypad6: KEY_KP6
    {89, 71},   // ANSI_Keypad7: KEY_KP7
    {90, 190},  // F20: KEY_F20
    {91, 72},   // ANSI_Keypad8: KEY_KP8
    {92, 73},   // ANSI_Keypad9: KEY_KP9
    {93, 124},  // JIS_Yen: KEY_YEN
    {94, 89},   // JIS_Underscore: KEY_RO
    {95, 95},   // JIS_KeypadComma: KEY_KPJPCOMMA
    {96, 63},   // F5: KEY_F5
    {97, 64},   // F6: KEY_F6
    {98, 65},   // F7: KEY_F7
    {99, 61},   // F3: KEY_F3
    {100, 66},  // F8: KEY_F8
    {101, 67},  // F9: KEY_F9
    {102, 123}, // JIS_Eisu: KEY_HANJA
    {103, 87},  // F11: KEY_F11
    {104, 122}, // JIS_Kana: KEY_HANGEUL
    {105, 183}, // F13: KEY_F13
    {106, 186}, // F16: KEY_F16
    {107, 184}, // F14: KEY_F14
    {109, 68},  // F10: KEY_F10
    {111, 88},  // F12: KEY_F12
    {113, 185}, // F15: KEY_F15
    {114, 138}, // Help: KEY_HELP
    {115, 102}, // Home: KEY_HOME
    {116, 104}, // PageUp: KEY_PAGEUP
    {117, 111}, // ForwardDelete: KEY_DELETE
    {118, 62},  // F4: KEY_F4
    {119, 107}, // End: KEY_END
    {120, 60},  // F2: KEY_F2
    {121, 109}, // PageDown: KEY_PAGEDOWN
    {122, 59},  // F1: KEY_F1
    {123, 105}, // LeftArrow: KEY_LEFT
    {124, 106}, // RightArrow: KEY_RIGHT
    {125, 108}, // DownArrow: KEY_DOWN
    {126, 103}, // UpArrow: KEY_UP
});

static_assert(std::ranges::is_sorted(keys, std::ranges::less_equal(), &Key::macKeyCode));

/// How far X11's key codes stand above those of the kernel: X11 keeps the first eight for itself.
constexpr std::uint32_t x11Offset = 8;

} // namespace

std::optional<std::uint32_t> evdevCode(std::uint32_t macKeyCode) {
    const auto* const key = std::ranges::lower_bound(keys, macKeyCode, {}, &Key::macKeyCode);
    if (key == keys.end() || key->macKeyCode != macKeyCode) {
        return std::nullopt;
    }
    return key->evdevCode;
}

std::optional<std::uint32_t> macKeyCodeOfEvdev(std::uint32_t evdevCode) {
    const auto* const key = std::ranges::find(keys, evdevCode, &Key::evdevCode);
    return key == keys.end() ? std::nullopt : std::optional(key->macKeyCode);
}

std::optional<std::uint32_t> x11KeyCode(std::uint32_t macKeyCode) {
    const auto code = evdevCode(macKeyCode);
    return code ? std::optional(*code + x11Offset) : std::nullopt;
}

std::optional<std::uint32_t> macKeyCodeOfX11(std::uint32_t x11KeyCode) {
    return x11KeyCode < x11Offset ? std::nullopt : macKeyCodeOfEvdev(x11KeyCode - x11Offset);
}

} // namespace blankwell
