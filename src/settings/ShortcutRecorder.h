#pragma once

#include "base/Geometry.h"
#include "platform/ColorRole.h"
#include "settings/QuickCreateShortcut.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace blankwell {

/// What a `ShortcutRecorder` looks like at a moment.
struct ShortcutRecorderAppearance {
    std::string text;
    ColorRole textColor;
    ColorRole fill;
    double fillOpacity = 1;
    ColorRole stroke;
    Points lineWidth = 1;

    friend bool operator==(const ShortcutRecorderAppearance&,
                           const ShortcutRecorderAppearance&) = default;
};

/// The behaviour of a `ShortcutRecorderControl`: a mouse press begins recording, the next key
/// combination is taken.
///
/// The control passes its events in, takes the keyboard focus at a mouse press, consumes every key
/// it gets, and draws `appearance()` anew whenever it is told to. A shortcut is only ever replaced
/// here, never taken away. Belongs to the main thread.
class ShortcutRecorder {
public:
    struct Callbacks {
        /// Takes each recorded shortcut, while recording is still under way. It must not destroy
        /// the recorder.
        std::function<void(const QuickCreateShortcut&)> onChange = [](const auto&) {};
        /// Plays the system's alert sound.
        std::function<void()> beep = [] {};
        /// The appearance may have changed.
        std::function<void()> needsDisplay = [] {};
        /// Recording began (true) or ended. The application's own hot keys are to be given back in
        /// between: a key that is taken by one of them never reaches the control.
        std::function<void(bool)> recordingChanged = [](bool) {};
    };

    /// Shows what was set last.
    struct Idle {};

    /// Waits for a key combination.
    struct Recording {};

    /// Waits on, after a key that is no shortcut.
    struct RecordingWithHint {
        std::string message;
    };

    using State = std::variant<Idle, Recording, RecordingWithHint>;

    static constexpr Size intrinsicContentSize{.width = 220, .height = 32};
    static constexpr Points cornerRadius = 6;
    /// The text is in the monospaced system font, of medium weight.
    static constexpr Points fontSize = 13;

    explicit ShortcutRecorder(Callbacks callbacks) : callbacks_(std::move(callbacks)) {}

    [[nodiscard]] const std::optional<QuickCreateShortcut>& shortcut() const { return shortcut_; }

    void setShortcut(const std::optional<QuickCreateShortcut>& shortcut);

    /// What is shown where there is no shortcut.
    void setPlaceholder(std::string placeholder);

    [[nodiscard]] const State& state() const { return state_; }

    [[nodiscard]] bool isRecording() const { return !std::holds_alternative<Idle>(state_); }

    void mouseDown();

    /// `flags` are modifier flags as `modifierflags` has them. Records also while idle.
    void keyDown(std::uint32_t keyCode, std::uint64_t flags);

    /// The control lost the keyboard focus.
    void resignFirstResponder();

    [[nodiscard]] ShortcutRecorderAppearance appearance() const;

    /// The rounded rectangle to fill and to stroke, in a control of `bounds`.
    [[nodiscard]] static Rect outline(const Rect& bounds);

    /// Where a text of `textHeight` goes, left-aligned.
    [[nodiscard]] static Rect textRect(const Rect& bounds, Points textHeight);

private:
    void enter(State state);
    [[nodiscard]] std::string text() const;

    Callbacks callbacks_;
    std::optional<QuickCreateShortcut> shortcut_ = defaultQuickCreateShortcut;
    std::string placeholder_ = "Set Shortcut";
    State state_;
};

} // namespace blankwell
