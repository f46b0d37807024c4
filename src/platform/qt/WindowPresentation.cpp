#include "platform/qt/WindowPresentation.h"

#include "platform/qt/X11WindowHints.h"

#include <QDialog>
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
    return dialog.exec();
}

} // namespace blankwell
