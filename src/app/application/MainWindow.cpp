#include "app/application/MainWindow.h"

#include "app/WindowScenes.h"

namespace blankwell {

MainWindow::MainWindow(const ContentView::Services& content,
                       const ApplicationMenuBar::Services& menus)
    : SceneWindow(mainWindowScene, new ContentView(content), new ApplicationMenuBar(menus)),
      size_(content.theme, *this) {}

} // namespace blankwell
