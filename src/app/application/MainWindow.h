#pragma once

#include "app/application/ActivatedWindowSize.h"
#include "app/application/ApplicationMenuBar.h"
#include "app/application/SceneWindow.h"
#include "base/Subscription.h"
#include "views/ContentView.h"

namespace blankwell {

class OnboardingView;

/// The window of the main scene: the menus, the sections, and the walkthrough over them as long as
/// that is not completed.
class MainWindow : public SceneWindow {
    Q_OBJECT

public:
    MainWindow(const ContentView::Services& content, const ApplicationMenuBar::Services& menus);

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void showOnboarding();

    AppSettings& settings_;
    ActivatedWindowSize size_;
    OnboardingView* onboarding_;
    /// It has not been active since it was shown.
    bool isNewlyShown_ = false;
    Subscription onboardingChanges_;
};

} // namespace blankwell
