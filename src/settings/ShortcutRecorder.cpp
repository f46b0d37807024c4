#include "settings/ShortcutRecorder.h"

#include "base/Overloaded.h"

#include <utility>

namespace blankwell {

void ShortcutRecorder::setShortcut(const std::optional<QuickCreateShortcut>& shortcut) {
    shortcut_ = shortcut;
    callbacks_.needsDisplay();
}

void ShortcutRecorder::setPlaceholder(std::string placeholder) {
    placeholder_ = std::move(placeholder);
    callbacks_.needsDisplay();
}

void ShortcutRecorder::mouseDown() {
    enter(Recording{});
}

void ShortcutRecorder::keyDown(std::uint32_t keyCode, std::uint64_t flags) {
    const auto pressed = shortcutFromKeyPress(keyCode, flags);
    if (pressed) {
        setShortcut(*pressed);
        callbacks_.onChange(*pressed);
        enter(Idle{});
        return;
    }
    switch (pressed.error()) {
    case ShortcutRefusal::endsRecording:
        enter(Idle{});
        return;
    case ShortcutRefusal::needsModifier:
        callbacks_.beep();
        enter(RecordingWithHint{std::string(message(pressed.error()))});
        return;
    }
}

void ShortcutRecorder::resignFirstResponder() {
    enter(Idle{});
}

ShortcutRecorderAppearance ShortcutRecorder::appearance() const {
    const bool isDimmed = std::holds_alternative<RecordingWithHint>(state_) || !shortcut_;
    const auto textColor = isDimmed ? ColorRole::secondaryLabel : ColorRole::label;
    if (isRecording()) {
        return {.text = text(),
                .textColor = textColor,
                .fill = ColorRole::accent,
                .fillOpacity = 0.14,
                .stroke = ColorRole::accent,
                .lineWidth = 2};
    }
    return {.text = text(),
            .textColor = textColor,
            .fill = ColorRole::controlBackground,
            .fillOpacity = 1,
            .stroke = ColorRole::separator,
            .lineWidth = 1};
}

Rect ShortcutRecorder::outline(const Rect& bounds) {
    constexpr Points inset = 0.5;
    return {
        .origin = {.x = bounds.minX() + inset, .y = bounds.minY() + inset},
        .size = {.width = bounds.size.width - 2 * inset, .height = bounds.size.height - 2 * inset}};
}

Rect ShortcutRecorder::textRect(const Rect& bounds, Points textHeight) {
    constexpr Points padding = 10;
    const auto box = outline(bounds);
    return {.origin = {.x = box.minX() + padding, .y = box.midY() - textHeight / 2},
            .size = {.width = box.size.width - 2 * padding, .height = textHeight}};
}

void ShortcutRecorder::enter(State state) {
    const bool wasRecording = isRecording();
    state_ = std::move(state);
    if (isRecording() != wasRecording) {
        callbacks_.recordingChanged(isRecording());
    }
    callbacks_.needsDisplay();
}

std::string ShortcutRecorder::text() const {
    const Overloaded textOfState{
        [this](const Idle&) { return shortcut_ ? shortcut_->displayString() : placeholder_; },
        [](const Recording&) { return std::string("Press shortcut"); },
        [](const RecordingWithHint& hint) { return hint.message; },
    };
    return std::visit(textOfState, state_);
}

} // namespace blankwell
