#include "platform/qt/QtApplicationPresence.h"

#include "platform/qt/X11WindowHints.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace blankwell {
namespace {

/// Whether `window` is one that task bars list.
bool isListed(const QWidget& window) {
    return window.windowType() == Qt::Window || window.windowType() == Qt::Dialog;
}

} // namespace

QtApplicationPresence::QtApplicationPresence() {
    qApp->installEventFilter(this);
}

void QtApplicationPresence::setActivationPolicy(ActivationPolicy policy) {
    policy_ = policy;
    for (const auto* const window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) {
            apply(*window);
        }
    }
}

void QtApplicationPresence::terminate() {
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

bool QtApplicationPresence::eventFilter(QObject* watched, QEvent* event) {
    // Sent when the window is made and not shown yet.
    if (event->type() == QEvent::Show && watched->isWidgetType()) {
        apply(*static_cast<const QWidget*>(watched));
    }
    return false;
}

void QtApplicationPresence::apply(const QWidget& window) const {
    if (!window.isWindow() || !isListed(window) || window.windowHandle() == nullptr) {
        return;
    }
    setWindowStates(*window.windowHandle(), {WindowState::skipTaskbar, WindowState::skipPager},
                    policy_ == ActivationPolicy::accessory ? WindowStatePresence::present
                                                           : WindowStatePresence::absent);
}

} // namespace blankwell
