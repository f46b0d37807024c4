#include "bench/peers/KeyWindow.h"

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QPixmap>
#include <QSystemTrayIcon>

/// The least with a status item, a menu in it, and a window that comes and goes.
int main(int argumentCount, char** arguments) {
    const QApplication application(argumentCount, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    QPixmap square(22, 22);
    square.fill(Qt::black);
    QMenu menu;
    menu.addAction("Quit", &application, &QApplication::quit);
    QSystemTrayIcon icon{QIcon(square)};
    icon.setContextMenu(&menu);
    icon.show();
    QLabel window("Hello");
    window.setWindowTitle("Tray window");
    window.setGeometry(360, 100, 560, 600);
    KeyWindow byKey(window);
    return QApplication::exec();
}
