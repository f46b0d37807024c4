#pragma once

#include "platform/linux/MacKeyCodes.h"
#include "settings/ShortcutRecorderServices.h"

#include <QApplication>
#include <QKeyEvent>

namespace blankwell {

/// A key as a keyboard sends it: what the toolkit makes of it, and where it is.
struct SentKey {
    Qt::Key key;
    /// The virtual key code of the Macintosh.
    std::uint32_t keyCode;
};

namespace keys {
inline constexpr SentKey a{.key = Qt::Key_A, .keyCode = 0};
inline constexpr SentKey n{.key = Qt::Key_N, .keyCode = 45};
inline constexpr SentKey m{.key = Qt::Key_M, .keyCode = 46};
inline constexpr SentKey w{.key = Qt::Key_W, .keyCode = 13};
inline constexpr SentKey escape{.key = Qt::Key_Escape, .keyCode = 53};
inline constexpr SentKey backspace{.key = Qt::Key_Backspace, .keyCode = 51};
inline constexpr SentKey tab{.key = Qt::Key_Tab, .keyCode = 48};
inline constexpr SentKey backtab{.key = Qt::Key_Backtab, .keyCode = 48};
inline constexpr SentKey space{.key = Qt::Key_Space, .keyCode = 49};
} // namespace keys

/// Sends keys to a widget the way the toolkit does, with the scan codes of an X11 keyboard.
struct KeySender {
    enum class Repeat { no, yes };

    /// Whether the widget or one around it kept the key from what comes next.
    static bool send(QWidget& widget, QEvent::Type type, const SentKey& key,
                     Qt::KeyboardModifiers modifiers, Repeat repeat = Repeat::no) {
        const auto scanCode = x11KeyCode(key.keyCode).value_or(0);
        return sendScanCode(widget, type, key.key, scanCode, modifiers, repeat);
    }

    static bool sendScanCode(QWidget& widget, QEvent::Type type, Qt::Key key,
                             std::uint32_t scanCode, Qt::KeyboardModifiers modifiers,
                             Repeat repeat = Repeat::no) {
        QKeyEvent event(type, key, modifiers, scanCode, 0, 0, {}, repeat == Repeat::yes);
        if (type == QEvent::ShortcutOverride) {
            event.ignore();
        }
        QApplication::sendEvent(&widget, &event);
        return event.isAccepted();
    }

    static bool press(QWidget& widget, const SentKey& key, Qt::KeyboardModifiers modifiers = {}) {
        return send(widget, QEvent::KeyPress, key, modifiers);
    }

    static void release(QWidget& widget, const SentKey& key, Qt::KeyboardModifiers modifiers = {}) {
        send(widget, QEvent::KeyRelease, key, modifiers);
    }

    static void click(QWidget& widget, const SentKey& key, Qt::KeyboardModifiers modifiers = {}) {
        press(widget, key, modifiers);
        release(widget, key, modifiers);
    }
};

/// Services of recorders that count.
struct CountedRecorderServices {
    int beeps = 0;
    /// How often the hot keys were given back, and how many of that lasts.
    int suspensions = 0;
    int lasting = 0;

    ShortcutRecorderServices services{
        .keyCodeOf = macKeyCodeOfX11,
        .beep = [this] { ++beeps; },
        .suspendHotKeys =
            [this] {
                ++suspensions;
                ++lasting;
                return Subscription([this] { --lasting; });
            },
    };
};

} // namespace blankwell
