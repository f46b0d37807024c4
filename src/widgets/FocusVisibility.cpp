#include "widgets/FocusVisibility.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include <algorithm>
#include <array>

namespace blankwell {
namespace {

constexpr auto* property = "blankwell.showsFocus";

/// Keys that do nothing by themselves.
bool isModifier(const QKeyEvent& event) {
    static constexpr std::array keys{Qt::Key_Shift, Qt::Key_Control, Qt::Key_Meta,
                                     Qt::Key_Alt,   Qt::Key_AltGr,   Qt::Key_CapsLock};
    return std::ranges::find(keys, event.key()) != keys.end();
}

void setShown(QWidget& window, bool isShown) {
    if (window.property(property).toBool() == isShown) {
        return;
    }
    window.setProperty(property, isShown);
    if (auto* const focused = window.focusWidget()) {
        focused->update();
        if (auto* const row = focused->parentWidget()) {
            row->update(); // which may show it as well
        }
    }
}

} // namespace

bool showsFocus(const QWidget& control) {
    return control.hasFocus() && control.window()->property(property).toBool();
}

FocusVisibility::FocusVisibility() {
    qApp->installEventFilter(this);
}

bool FocusVisibility::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType()) {
        return false;
    }
    auto& widget = *static_cast<QWidget*>(watched);
    switch (event->type()) {
    case QEvent::KeyPress:
        if (!isModifier(*static_cast<const QKeyEvent*>(event))) {
            setShown(*widget.window(), true);
        }
        break;
    case QEvent::MouseButtonPress:
        setShown(*widget.window(), false);
        break;
    case QEvent::Hide:
        if (widget.isWindow()) {
            setShown(widget, false);
        }
        break;
    default:
        break;
    }
    return false;
}

} // namespace blankwell
