#include "app/application/MainWindow.h"

#include "app/WindowScenes.h"
#include "platform/ObserveLater.h"
#include "settings/AppSettings.h"
#include "views/OnboardingView.h"

#include <QShowEvent>

#include <utility>

namespace blankwell {

MainWindow::MainWindow(const ContentView::Services& content,
                       const ApplicationMenuBar::Services& menus)
    : SceneWindow(mainWindowScene, new ContentView(content), new ApplicationMenuBar(menus)),
      settings_(content.settings),
      size_(content.theme, *this),
      onboarding_(new OnboardingView(content.theme, content.settings, this)),
      onboardingChanges_(observeLater(settings_.hasCompletedOnboarding, content.mainQueue,
                                      [this](bool /*isCompleted*/) { showOnboarding(); })) {}

void MainWindow::showEvent(QShowEvent* event) {
    SceneWindow::showEvent(event);
    isNewlyShown_ = isNewlyShown_ || !event->spontaneous();
}

void MainWindow::changeEvent(QEvent* event) {
    SceneWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() &&
        std::exchange(isNewlyShown_, false)) {
        // By now the window manager has put the window where it belongs.
        QMetaObject::invokeMethod(this, &MainWindow::showOnboarding, Qt::QueuedConnection);
    }
}

void MainWindow::showOnboarding() {
    if (isVisible() && !settings_.hasCompletedOnboarding.get()) {
        onboarding_->open();
    }
}

} // namespace blankwell
