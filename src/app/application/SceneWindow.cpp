#include "app/application/SceneWindow.h"

#include "app/WindowScenes.h"
#include "widgets/AccessibleRole.h"
#include "widgets/QtStrings.h"

#include <QCloseEvent>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

namespace blankwell {
namespace {

QSize pixels(Size size) {
    return {qRound(size.width), qRound(size.height)};
}

} // namespace

SceneWindow::SceneWindow(const WindowScene& scene, QWidget* content, QWidget* menuBar) {
    setAccessibleRole(*this, QAccessible::Window);
    setWindowTitle(qString(scene.title));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    if (menuBar != nullptr) {
        layout->setMenuBar(menuBar);
    }
    layout->addWidget(content, 1);
    if (scene.contentMinimumSize) {
        setMinimumSize(pixels(*scene.contentMinimumSize));
    }
    takeDefaultSize(scene);
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this,
            &SceneWindow::closeForUser);
}

/// As far as the screen has room for it and for what the window manager puts around.
void SceneWindow::takeDefaultSize(const WindowScene& scene) {
    const auto wanted = scene.defaultSize ? pixels(*scene.defaultSize) : sizeHint();
    constexpr int around = 2 * static_cast<int>(mainwindow::screenMargin);
    const auto* const display = screen();
    resize(display == nullptr ? wanted
                              : wanted.boundedTo(display->availableSize() - QSize(around, around)));
}

void SceneWindow::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    if (event->spontaneous()) {
        // Once it is hidden.
        QMetaObject::invokeMethod(this, &SceneWindow::closedByUser, Qt::QueuedConnection);
    }
}

void SceneWindow::closeForUser() {
    close();
    emit closedByUser();
}

} // namespace blankwell
