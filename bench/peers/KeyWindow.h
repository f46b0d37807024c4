#pragma once

#include <QAbstractNativeEventFilter>
#include <QGuiApplication>
#include <QShortcut>
#include <QWidget>
#include <xcb/xcb.h>

#include <cstdlib>

/// Shows a window at Control-Alt-M, wherever the keyboard is, and hides it at Escape.
class KeyWindow : public QAbstractNativeEventFilter {
public:
    explicit KeyWindow(QWidget& window) : window_(window) {
        auto* const connection =
            qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
        const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
        xcb_grab_key(connection, 0, root, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1, key,
                     XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        xcb_flush(connection);
        qGuiApp->installNativeEventFilter(this);
        QObject::connect(new QShortcut(Qt::Key_Escape, &window), &QShortcut::activated, &window,
                         &QWidget::hide);
    }

    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
        const auto* const event = static_cast<xcb_generic_event_t*>(message);
        if ((event->response_type & 0x7f) != XCB_KEY_PRESS ||
            reinterpret_cast<const xcb_key_press_event_t*>(event)->detail != key) {
            return false;
        }
        window_.show();
        window_.activateWindow();
        return true;
    }

private:
    static constexpr xcb_keycode_t key = 58; // M

    QWidget& window_;
};
