#pragma once

#include <cstdint>
#include <optional>

namespace blankwell {

// The keys of a keyboard by their places, in the numbers of each system: the Macintosh's virtual
// key codes (the names and numbers of `kVK_…` in Carbon's `Events.h`), the kernel's (`KEY_…` of
// linux/input-event-codes.h) and X11's, which are the kernel's and eight. Layouts do not matter.

/// The kernel's code of a virtual key code; nothing for a number that no key has.
[[nodiscard]] std::optional<std::uint32_t> evdevCode(std::uint32_t macKeyCode);

/// The virtual key code of a key of the kernel's; nothing for a key that the Macintosh does not
/// have.
[[nodiscard]] std::optional<std::uint32_t> macKeyCodeOfEvdev(std::uint32_t evdevCode);

/// The X11 key code of a virtual key code, as `evdevCode`. Can be above 255, which no X11 keyboard
/// has, but Wayland's do.
[[nodiscard]] std::optional<std::uint32_t> x11KeyCode(std::uint32_t macKeyCode);

/// The virtual key code of an X11 key code, as `macKeyCodeOfEvdev`.
[[nodiscard]] std::optional<std::uint32_t> macKeyCodeOfX11(std::uint32_t x11KeyCode);

} // namespace blankwell
