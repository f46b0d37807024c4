#include "platform/qt/QtScreens.h"

#include "platform/qt/ScreenCoordinates.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <iterator>

namespace blankwell {
namespace {

Screen described(const QScreen& screen, const ScreenCoordinates& coordinates) {
    return {
        .frame = coordinates.rectOf(screen.geometry()),
        .visibleFrame = coordinates.rectOf(screen.availableGeometry()),
    };
}

} // namespace

std::optional<Point> QtScreens::pointerLocation() const {
    const auto* const primary = QGuiApplication::primaryScreen();
    if (primary == nullptr || QGuiApplication::platformName().startsWith("wayland")) {
        return std::nullopt;
    }
    return ScreenCoordinates(primary->geometry()).pointOf(QCursor::pos());
}

std::vector<Screen> QtScreens::screens() const {
    const auto all = QGuiApplication::screens();
    std::vector<Screen> result;
    std::ranges::transform(all, std::back_inserter(result), [](const QScreen* screen) {
        return described(*screen, ScreenCoordinates(QGuiApplication::primaryScreen()->geometry()));
    });
    return result;
}

std::optional<Screen> QtScreens::mainScreen() const {
    const auto* const primary = QGuiApplication::primaryScreen();
    if (primary == nullptr) {
        return std::nullopt;
    }
    const auto* const window = QGuiApplication::focusWindow();
    return described(window == nullptr ? *primary : *window->screen(),
                     ScreenCoordinates(primary->geometry()));
}

} // namespace blankwell
