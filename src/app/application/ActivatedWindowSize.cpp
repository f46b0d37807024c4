#include "app/application/ActivatedWindowSize.h"

#include "platform/qt/ScreenCoordinates.h"
#include "widgets/Theme.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace blankwell {
namespace {

ScreenCoordinates coordinates() {
    const auto* const primary = QGuiApplication::primaryScreen();
    return ScreenCoordinates(primary == nullptr ? QRect() : primary->geometry());
}

/// `frame` without what would be outside of `visible`: there may be no title bar to hold it by.
Rect keptInside(const Rect& visible, const Rect& frame) {
    const auto bottom = std::max(frame.minY(), visible.minY());
    const auto top = std::min(frame.maxY(), visible.maxY());
    return {.origin = {.x = frame.minX(), .y = bottom},
            .size = {.width = frame.size.width, .height = top - bottom}};
}

} // namespace

ActivatedWindowSize::ActivatedWindowSize(const Theme& theme, QWidget& window)
    : theme_(theme), window_(window), animation_(&window, "geometry") {
    window.installEventFilter(this);
}

bool ActivatedWindowSize::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        apply();
    }
    return false;
}

void ActivatedWindowSize::apply() {
    if (window_.isMaximized() || window_.isFullScreen()) {
        return; // then its size is the desktop's
    }
    const auto* const screen = window_.screen();
    const auto visible = screen == nullptr
                             ? std::nullopt
                             : std::optional(coordinates().rectOf(screen->availableGeometry()));
    const auto frame = sizing_.windowBecameActive(coordinates().rectOf(window_.frameGeometry()),
                                                  window_.height(), visible);
    if (frame) {
        moveTo(keptInside(*visible, *frame));
    }
}

void ActivatedWindowSize::moveTo(const Rect& frame) {
    const auto outer = window_.frameGeometry();
    const auto inner = window_.geometry();
    const auto goal = coordinates().pixelsOf(frame).marginsRemoved(
        {inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
         outer.bottom() - inner.bottom()});
    animation_.stop();
    animation_.setDuration(static_cast<int>(theme_.motion().count()));
    animation_.setEndValue(goal);
    animation_.start();
}

} // namespace blankwell
