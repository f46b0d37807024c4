#include "platform/qt/QtApplication.h"

#include "platform/qt/QtText.h"
#include "platform/qt/WindowPresentation.h"

#include <QApplication>

#include <algorithm>

namespace blankwell {
namespace {

/// The windows titled exactly `title` that are no panels.
QWidgetList windowsTitled(std::string_view title) {
    auto windows = QApplication::topLevelWidgets();
    windows.removeIf([name = qtText(title)](const QWidget* window) {
        return window->windowTitle() != name || isPanel(*window);
    });
    return windows;
}

QWidget* anyVisibleWindow() {
    const auto windows = QApplication::topLevelWidgets();
    const auto found = std::ranges::find_if(windows, [](const QWidget* window) {
        return window->isVisible() &&
               (window->windowType() == Qt::Window || window->windowType() == Qt::Dialog);
    });
    return found == windows.end() ? nullptr : *found;
}

} // namespace

bool QtApplication::isActive() const {
    return QGuiApplication::applicationState() == Qt::ApplicationActive;
}

void QtApplication::activate() {
    auto* window = QApplication::activeModalWidget();
    if (window == nullptr) {
        window = front_ != nullptr && front_->isVisible() ? front_.data() : anyVisibleWindow();
    }
    if (window != nullptr) {
        raiseAndActivate(*window);
    }
}

void QtApplication::closeWindows(std::string_view title) {
    for (auto* const window : windowsTitled(title)) {
        window->close();
    }
}

bool QtApplication::makeKeyAndOrderFront(std::string_view title) {
    const auto windows = windowsTitled(title);
    if (windows.isEmpty()) {
        return false;
    }
    bringToFront(*windows.front());
    return true;
}

void QtApplication::bringToFront(QWidget& window) {
    front_ = &window;
    if (window.isMinimized()) {
        window.showNormal();
    } else {
        window.show();
    }
    raiseAndActivate(window);
}

} // namespace blankwell
