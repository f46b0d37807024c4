#pragma once

#include <nlohmann/json_fwd.hpp>

#include <cstddef>
#include <cstdint>
#include <expected>
#include <functional>
#include <string>
#include <string_view>

namespace blankwell {

/// Bits of a Carbon modifier mask, as in Carbon's `Events.h`.
namespace carbon {
inline constexpr std::uint32_t cmdKey = 0x100;
inline constexpr std::uint32_t shiftKey = 0x200;
inline constexpr std::uint32_t optionKey = 0x800;
inline constexpr std::uint32_t controlKey = 0x1000;
} // namespace carbon

/// Bits of a key event's modifier flags, as `NSEventModifierFlags` has them. Other bits exist.
namespace modifierflags {
inline constexpr std::uint64_t shift = 0x20000;
inline constexpr std::uint64_t control = 0x40000;
inline constexpr std::uint64_t option = 0x80000;
inline constexpr std::uint64_t command = 0x100000;
} // namespace modifierflags

/// A key with modifiers: the two numbers that a hot key is registered with.
struct QuickCreateShortcut {
    /// The virtual key code of the Macintosh keyboard, which names a key by its place: 45 is the
    /// key that bears an N on an ANSI keyboard.
    std::uint32_t keyCode = 0;
    std::uint32_t carbonModifiers = 0;

    /// Whether it can be registered: it has a key, and a modifier.
    [[nodiscard]] bool isUsable() const;

    /// The text shown to the user, such as "⌃ + ⌥ + N".
    [[nodiscard]] std::string displayString() const;

    friend bool operator==(const QuickCreateShortcut&, const QuickCreateShortcut&) = default;
};

/// Control-Option-N.
inline constexpr QuickCreateShortcut defaultQuickCreateShortcut{
    .keyCode = 45,
    .carbonModifiers = carbon::controlKey | carbon::optionKey,
};

/// The Carbon mask of the modifiers held according to `flags`; bits other than those of the four
/// modifiers do not count. 0 where none of the four is held.
[[nodiscard]] std::uint32_t carbonModifiers(std::uint64_t flags);

/// The label of a key on the ANSI layout; "Key " and the number for keys without one.
[[nodiscard]] std::string keyName(std::uint32_t keyCode);

/// Why a key press is no shortcut.
enum class ShortcutRefusal {
    /// It is Escape, which ends recording.
    endsRecording,
    /// No modifier was held.
    needsModifier,
};

/// What to tell the user; blank where there is nothing to tell.
[[nodiscard]] std::string_view message(ShortcutRefusal refusal);

/// The shortcut that a key press with the modifier flags `flags` stands for.
[[nodiscard]] std::expected<QuickCreateShortcut, ShortcutRefusal>
shortcutFromKeyPress(std::uint32_t keyCode, std::uint64_t flags);

/// The JSON form: an object of the numbers "keyCode" and "carbonModifiers".
void to_json(nlohmann::json& json, const QuickCreateShortcut& shortcut);

/// Throws `nlohmann::json::exception` where a member is missing or is not a whole number of 32 bits
/// without a sign.
void from_json(const nlohmann::json& json, QuickCreateShortcut& shortcut);

} // namespace blankwell

template <>
struct std::hash<blankwell::QuickCreateShortcut> {
    std::size_t operator()(const blankwell::QuickCreateShortcut& shortcut) const noexcept;
};
