#include "settings/QuickCreateShortcut.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <array>
#include <cmath>
#include <limits>
#include <unordered_map>

namespace blankwell {
namespace {

constexpr std::uint32_t escapeKeyCode = 53;
constexpr std::uint32_t noKeyCode = std::numeric_limits<std::uint32_t>::max();

struct Modifier {
    std::uint64_t flag;
    std::uint32_t carbonBit;
    std::string_view glyph;
};

/// In the order of display strings.
constexpr std::array modifiers{
    Modifier{modifierflags::command, carbon::cmdKey, "⌘"},
    Modifier{modifierflags::control, carbon::controlKey, "⌃"},
    Modifier{modifierflags::option, carbon::optionKey, "⌥"},
    Modifier{modifierflags::shift, carbon::shiftKey, "⇧"},
};

using KeyNames = std::unordered_map<std::uint32_t, std::string_view>;

/// Virtual key codes as in Carbon's `Events.h`.
const KeyNames& keyNames() {
    static const KeyNames names{
        {0, "A"},     {11, "B"},     {8, "C"},   {2, "D"},   {14, "E"},   {3, "F"},    {5, "G"},
        {4, "H"},     {34, "I"},     {38, "J"},  {40, "K"},  {37, "L"},   {46, "M"},   {45, "N"},
        {31, "O"},    {35, "P"},     {12, "Q"},  {15, "R"},  {1, "S"},    {17, "T"},   {32, "U"},
        {9, "V"},     {13, "W"},     {7, "X"},   {16, "Y"},  {6, "Z"},    {29, "0"},   {18, "1"},
        {19, "2"},    {20, "3"},     {21, "4"},  {23, "5"},  {22, "6"},   {26, "7"},   {28, "8"},
        {25, "9"},    {49, "Space"}, {36, "↩"},  {48, "⇥"},  {53, "⎋"},   {51, "⌫"},   {117, "⌦"},
        {123, "←"},   {124, "→"},    {126, "↑"}, {125, "↓"}, {122, "F1"}, {120, "F2"}, {99, "F3"},
        {118, "F4"},  {96, "F5"},    {97, "F6"}, {98, "F7"}, {100, "F8"}, {101, "F9"}, {109, "F10"},
        {103, "F11"}, {111, "F12"},
    };
    return names;
}

/// A number of JSON as 32 bits without a sign. A fraction of zero is no fraction.
std::uint32_t unsigned32(const nlohmann::json& json) {
    constexpr auto largest = std::numeric_limits<std::uint32_t>::max();
    if (json.is_number_unsigned() && json.get<std::uint64_t>() <= largest) {
        return json.get<std::uint32_t>();
    }
    if (json.is_number_float()) {
        const auto number = json.get<double>();
        if (number >= 0 && number <= largest && std::trunc(number) == number) {
            return static_cast<std::uint32_t>(number);
        }
    }
    throw nlohmann::json::other_error::create(501, "not a number of 32 bits", &json);
}

} // namespace

bool QuickCreateShortcut::isUsable() const {
    return keyCode != noKeyCode && carbonModifiers != 0;
}

std::string QuickCreateShortcut::displayString() const {
    std::string text;
    for (const auto& modifier : modifiers) {
        if ((carbonModifiers & modifier.carbonBit) != 0) {
            text += modifier.glyph;
            text += " + ";
        }
    }
    return text + keyName(keyCode);
}

std::uint32_t carbonModifiers(std::uint64_t flags) {
    std::uint32_t mask = 0;
    for (const auto& modifier : modifiers) {
        if ((flags & modifier.flag) != 0) {
            mask |= modifier.carbonBit;
        }
    }
    return mask;
}

std::string keyName(std::uint32_t keyCode) {
    const auto found = keyNames().find(keyCode);
    return found == keyNames().end() ? fmt::format("Key {}", keyCode) : std::string(found->second);
}

std::string_view message(ShortcutRefusal refusal) {
    return refusal == ShortcutRefusal::needsModifier ? "Add ⌘, ⌃, ⌥, or ⇧" : "";
}

std::expected<QuickCreateShortcut, ShortcutRefusal> shortcutFromKeyPress(std::uint32_t keyCode,
                                                                         std::uint64_t flags) {
    if (keyCode == escapeKeyCode) {
        return std::unexpected(ShortcutRefusal::endsRecording);
    }
    const auto mask = carbonModifiers(flags);
    if (mask == 0) {
        return std::unexpected(ShortcutRefusal::needsModifier);
    }
    return QuickCreateShortcut{.keyCode = keyCode, .carbonModifiers = mask};
}

void to_json(nlohmann::json& json, const QuickCreateShortcut& shortcut) {
    json = {{"keyCode", shortcut.keyCode}, {"carbonModifiers", shortcut.carbonModifiers}};
}

void from_json(const nlohmann::json& json, QuickCreateShortcut& shortcut) {
    shortcut = {
        .keyCode = unsigned32(json.at("keyCode")),
        .carbonModifiers = unsigned32(json.at("carbonModifiers")),
    };
}

} // namespace blankwell

std::size_t std::hash<blankwell::QuickCreateShortcut>::operator()(
    const blankwell::QuickCreateShortcut& shortcut) const noexcept {
    return std::hash<std::uint64_t>{}(std::uint64_t{shortcut.keyCode} << 32U |
                                      shortcut.carbonModifiers);
}
