#include "bench/peers/KeyWindow.h"

#include <QApplication>
#include <QLabel>
#include <QVBoxLayout>

/// A prebuilt window that the window manager manages, of the same kind and size as the panel, with
/// 16 labels in it.
int main(int argumentCount, char** arguments) {
    const QApplication application(argumentCount, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    QWidget window(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    QVBoxLayout layout(&window);
    for (int number = 1; number <= 16; ++number) {
        layout.addWidget(new QLabel(QStringLiteral("Label %1").arg(number)));
    }
    window.setGeometry(360, 100, 560, 600);
    window.winId();
    window.grab();
    KeyWindow byKey(window);
    return QApplication::exec();
}
