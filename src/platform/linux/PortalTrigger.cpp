#include "platform/linux/PortalTrigger.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace blankwell {
namespace {

struct KeyName {
    std::uint32_t keyCode;
    std::string_view name;
};

struct ModifierName {
    std::uint32_t mask;
    std::string_view name;
};

/// The names that xkbcommon has for the symbols of the keys, by ascending virtual key code.
constexpr auto keyNames = std::to_array<KeyName>({
    {.keyCode = 0, .name = "a"},
    {.keyCode = 1, .name = "s"},
    {.keyCode = 2, .name = "d"},
    {.keyCode = 3, .name = "f"},
    {.keyCode = 4, .name = "h"},
    {.keyCode = 5, .name = "g"},
    {.keyCode = 6, .name = "z"},
    {.keyCode = 7, .name = "x"},
    {.keyCode = 8, .name = "c"},
    {.keyCode = 9, .name = "v"},
    {.keyCode = 10, .name = "section"},
    {.keyCode = 11, .name = "b"},
    {.keyCode = 12, .name = "q"},
    {.keyCode = 13, .name = "w"},
    {.keyCode = 14, .name = "e"},
    {.keyCode = 15, .name = "r"},
    {.keyCode = 16, .name = "y"},
    {.keyCode = 17, .name = "t"},
    {.keyCode = 18, .name = "1"},
    {.keyCode = 19, .name = "2"},
    {.keyCode = 20, .name = "3"},
    {.keyCode = 21, .name = "4"},
    {.keyCode = 22, .name = "6"},
    {.keyCode = 23, .name = "5"},
    {.keyCode = 24, .name = "equal"},
    {.keyCode = 25, .name = "9"},
    {.keyCode = 26, .name = "7"},
    {.keyCode = 27, .name = "minus"},
    {.keyCode = 28, .name = "8"},
    {.keyCode = 29, .name = "0"},
    {.keyCode = 30, .name = "bracketright"},
    {.keyCode = 31, .name = "o"},
    {.keyCode = 32, .name = "u"},
    {.keyCode = 33, .name = "bracketleft"},
    {.keyCode = 34, .name = "i"},
    {.keyCode = 35, .name = "p"},
    {.keyCode = 36, .name = "Return"},
    {.keyCode = 37, .name = "l"},
    {.keyCode = 38, .name = "j"},
    {.keyCode = 39, .name = "apostrophe"},
    {.keyCode = 40, .name = "k"},
    {.keyCode = 41, .name = "semicolon"},
    {.keyCode = 42, .name = "backslash"},
    {.keyCode = 43, .name = "comma"},
    {.keyCode = 44, .name = "slash"},
    {.keyCode = 45, .name = "n"},
    {.keyCode = 46, .name = "m"},
    {.keyCode = 47, .name = "period"},
    {.keyCode = 48, .name = "Tab"},
    {.keyCode = 49, .name = "space"},
    {.keyCode = 50, .name = "grave"},
    {.keyCode = 51, .name = "BackSpace"},
    {.keyCode = 53, .name = "Escape"},
    {.keyCode = 64, .name = "F17"},
    {.keyCode = 65, .name = "KP_Decimal"},
    {.keyCode = 67, .name = "KP_Multiply"},
    {.keyCode = 69, .name = "KP_Add"},
    {.keyCode = 71, .name = "Num_Lock"},
    {.keyCode = 72, .name = "XF86AudioRaiseVolume"},
    {.keyCode = 73, .name = "XF86AudioLowerVolume"},
    {.keyCode = 74, .name = "XF86AudioMute"},
    {.keyCode = 75, .name = "KP_Divide"},
    {.keyCode = 76, .name = "KP_Enter"},
    {.keyCode = 78, .name = "KP_Subtract"},
    {.keyCode = 79, .name = "F18"},
    {.keyCode = 80, .name = "F19"},
    {.keyCode = 81, .name = "KP_Equal"},
    {.keyCode = 82, .name = "KP_0"},
    {.keyCode = 83, .name = "KP_1"},
    {.keyCode = 84, .name = "KP_2"},
    {.keyCode = 85, .name = "KP_3"},
    {.keyCode = 86, .name = "KP_4"},
    {.keyCode = 87, .name = "KP_5"},
    {.keyCode = 88, .name = "KP_6"},
    {.keyCode = 89, .name = "KP_7"},
    {.keyCode = 90, .name = "F20"},
    {.keyCode = 91, .name = "KP_8"},
    {.keyCode = 92, .name = "KP_9"},
    {.keyCode = 93, .name = "yen"},
    {.keyCode = 94, .name = "underscore"},
    {.keyCode = 95, .name = "KP_Separator"},
    {.keyCode = 96, .name = "F5"},
    {.keyCode = 97, .name = "F6"},
    {.keyCode = 98, .name = "F7"},
    {.keyCode = 99, .name = "F3"},
    {.keyCode = 100, .name = "F8"},
    {.keyCode = 101, .name = "F9"},
    {.keyCode = 102, .name = "Hangul_Hanja"},
    {.keyCode = 103, .name = "F11"},
    {.keyCode = 104, .name = "Hangul"},
    {.keyCode = 105, .name = "F13"},
    {.keyCode = 106, .name = "F16"},
    {.keyCode = 107, .name = "F14"},
    {.keyCode = 109, .name = "F10"},
    {.keyCode = 111, .name = "F12"},
    {.keyCode = 113, .name = "F15"},
    {.keyCode = 114, .name = "Help"},
    {.keyCode = 115, .name = "Home"},
    {.keyCode = 116, .name = "Prior"},
    {.keyCode = 117, .name = "Delete"},
    {.keyCode = 118, .name = "F4"},
    {.keyCode = 119, .name = "End"},
    {.keyCode = 120, .name = "F2"},
    {.keyCode = 121, .name = "Next"},
    {.keyCode = 122, .name = "F1"},
    {.keyCode = 123, .name = "Left"},
    {.keyCode = 124, .name = "Right"},
    {.keyCode = 125, .name = "Down"},
    {.keyCode = 126, .name = "Up"},
});

static_assert(std::ranges::is_sorted(keyNames, std::ranges::less_equal(), &KeyName::keyCode));

constexpr std::array modifierNames = {
    ModifierName{.mask = KeyCombination::controlKey, .name = "CTRL"},
    ModifierName{.mask = KeyCombination::optionKey, .name = "ALT"},
    ModifierName{.mask = KeyCombination::shiftKey, .name = "SHIFT"},
    ModifierName{.mask = KeyCombination::cmdKey, .name = "LOGO"},
};

} // namespace

std::optional<std::string> portalTrigger(const KeyCombination& combination) {
    const auto* const key =
        std::ranges::lower_bound(keyNames, combination.keyCode, {}, &KeyName::keyCode);
    if (key == keyNames.end() || key->keyCode != combination.keyCode) {
        return std::nullopt;
    }
    std::string trigger;
    auto rest = combination.carbonModifiers;
    for (const auto& [mask, name] : modifierNames) {
        if ((rest & mask) != 0) {
            trigger.append(name).push_back('+');
            rest &= ~mask;
        }
    }
    return trigger.empty() || rest != 0 ? std::nullopt : std::optional(trigger.append(key->name));
}

} // namespace blankwell
