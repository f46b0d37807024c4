#include "platform/qt/WindowPresentation.h"

#include "platform/qt/X11WindowHints.h"

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTimer>
#include <QWindow>

namespace blankwell {

bool isPanel(const QWidget& window) {
    return window.windowType() == Qt::Tool;
}

void raiseAndActivate(QWidget& window) {
    window.raise();
    if (!activateForUser(*window.windowHandle())) {
        window.activateWindow();
    }
}

int runInFront(QDialog& dialog) {
    // Above the panel, which is above all other windows.
    dialog.setWindowFlag(Qt::WindowStaysOnTopHint);
    QTimer::singleShot(0, &dialog, [&dialog] { raiseAndActivate(dialog); });
    const QPointer<QWidget> before = QApplication::activeWindow();
    const int result = dialog.exec();
    if (before != nullptr && before->isVisible()) {
        // Window managers do not give the keyboard back to a panel by themselves.
        raiseAndActivate(*before);
    }
    return result;
}

} // namespace blankwell
