#pragma once

#include "app/application/ActivatedWindowSize.h"
#include "app/application/ApplicationMenuBar.h"
#include "app/application/SceneWindow.h"
#include "views/ContentView.h"

namespace blankwell {

/// The window of the main scene: the menus, the sections, and the walkthrough over them as long as
/// that is not completed.
class MainWindow : public SceneWindow {
    Q_OBJECT

public:
    MainWindow(const ContentView::Services& content, const ApplicationMenuBar::Services& menus);

private:
    ActivatedWindowSize size_;
};

} // namespace blankwell
