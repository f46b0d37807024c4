#pragma once

#include "platform/linux/X11Connection.h"

#include <cstdint>

namespace blankwell {

/// A user at the keyboard of the X server that `DISPLAY` names: presses keys as the hardware does.
/// All keys are given by their virtual key codes.
class TestKeyboard {
public:
    /// The keys that are held down for a modifier.
    static constexpr std::uint32_t command = 55;
    static constexpr std::uint32_t shift = 56;
    static constexpr std::uint32_t capsLock = 57;
    static constexpr std::uint32_t option = 58;
    static constexpr std::uint32_t control = 59;
    static constexpr std::uint32_t numLock = 71;

    TestKeyboard();

    void down(std::uint32_t keyCode) { fake(XCB_KEY_PRESS, keyCode); }

    void up(std::uint32_t keyCode) { fake(XCB_KEY_RELEASE, keyCode); }

    /// Returns once every program has been sent what it gets of that.
    void hit(std::uint32_t keyCode);

    /// The same while the keys of a Carbon mask are held.
    void hit(std::uint32_t keyCode, std::uint32_t carbonModifiers);

    /// Returns once every program has been sent what the X server had for it.
    void settle();

    /// Goes over to another layout of the keyboard map, the first of which is 0. Returns the one
    /// that the keyboard is in then.
    std::uint8_t switchToLayout(std::uint8_t layout);

private:
    void fake(std::uint8_t type, std::uint32_t keyCode);

    X11Connection connection_;
};

/// A program in whose window the user types.
class TypedProgram {
public:
    /// Shows a window on the screen `screen` and gives it the keyboard.
    explicit TypedProgram(int screen = 0);

    /// Whether the window got the key since the last time it was asked.
    bool got(std::uint32_t keyCode);

    /// The modifiers, locks and layout of the key that was typed last, as X11 has them.
    [[nodiscard]] std::uint16_t lastState() const { return lastState_; }

private:
    X11Connection connection_;
    std::uint16_t lastState_ = 0;
};

/// A program with hot keys of its own. They go with it.
class RivalProgram {
public:
    RivalProgram();

    /// Takes a key with exactly these of X11's modifiers. Whether it gets it.
    bool grab(std::uint32_t keyCode, std::uint32_t modifiers);
    void ungrab(std::uint32_t keyCode, std::uint32_t modifiers);

private:
    X11Connection connection_;
    std::uint32_t root_ = 0;
};

} // namespace blankwell
