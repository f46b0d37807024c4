#pragma once

#include "settings/RecordingSuspension.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace blankwell {

/// What the recorders need of the keyboard and of the desktop.
struct ShortcutRecorderServices {
    /// The virtual key code of the key that sends a native scan code; nothing for a key that the
    /// Macintosh does not have.
    std::function<std::optional<std::uint32_t>(std::uint32_t)> keyCodeOf;
    /// Plays the system's alert sound.
    std::function<void()> beep;
    /// Gives the application's own hot keys back as long as the returned value lasts.
    RecordingSuspension::Suspend suspendHotKeys;
};

} // namespace blankwell
