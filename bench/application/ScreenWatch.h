#pragma once

#include "platform/linux/X11Connection.h"

#include <xcb/damage.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

namespace blankwell {

/// What a person sees of the X server that `DISPLAY` names. It knows no windows, so that it treats
/// every program alike: what counts is which pixels are on the screen.
class ScreenWatch {
public:
    using Clock = std::chrono::steady_clock;

    /// Some of the screen's rows of pixels, spread over its height.
    using Picture = std::vector<std::uint32_t>;

    /// Throws where there is no X server that tells of what is drawn.
    ScreenWatch();

    /// What is on the screen now.
    [[nodiscard]] Picture look();

    /// What is on the screen once nothing has been drawn for `quiet`.
    Picture settle(std::chrono::milliseconds quiet);

    /// Waits until the screen, on which `before` was, shows `wanted`. The last twentieth of what
    /// changes does not count: a text cursor may blink in it. Returns when that was seen; nothing
    /// where it is not seen within some seconds.
    [[nodiscard]] std::optional<Clock::time_point> awaitPicture(const Picture& before,
                                                                const Picture& wanted);

private:
    /// Whether something is drawn before `end`; what was drawn until now is then forgotten.
    bool drawnBefore(Clock::time_point end);

    X11Connection connection_;
    xcb_screen_t* screen_ = nullptr;
    std::uint8_t damageEvent_ = 0;
    xcb_damage_damage_t damage_ = 0;
};

} // namespace blankwell
