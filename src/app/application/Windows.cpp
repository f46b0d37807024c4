#include "app/application/Windows.h"

#include "app/WindowScenes.h"
#include "app/application/MainWindow.h"
#include "platform/qt/QtApplication.h"
#include "views/ExtensionPageView.h"
#include "views/HelpContent.h"
#include "views/HelpView.h"
#include "views/MainWindowContent.h"

#include <algorithm>
#include <array>
#include <utility>

namespace blankwell {

Windows::Windows(Services services, std::function<void()> lastClosed)
    : services_(std::move(services)),
      lastClosed_(std::move(lastClosed)),
      helpCommands_([this](std::string_view id) { open(id); }, services_.settings,
                    services_.application),
      settingsPages_(services_.workspace, [this] {
          open(extensionWindowScene.id);
          return true;
      }) {}

Windows::~Windows() = default;

void Windows::open(std::string_view id) {
    if (id == mainWindowScene.id) {
        show(mainWindow());
    } else if (id == helpWindowScene.id) {
        show(helpWindow());
    } else if (id == extensionWindowScene.id) {
        show(extensionWindow());
    }
}

void Windows::openMainWindow() {
    open(mainWindowScene.id);
}

SceneWindow& Windows::mainWindow() {
    if (!mainWindow_) {
        mainWindow_ = std::make_unique<MainWindow>(
            ContentView::Services{
                .theme = services_.theme,
                .settings = services_.settings,
                .loginItem = services_.loginItem,
                .shortcuts = services_.shortcuts,
                .folderAccess = services_.folderAccess,
                .bundle = services_.bundle,
                .extensionStatus = extensionStatus_,
                .uninstaller = services_.uninstaller,
                .mainQueue = services_.mainQueue,
            },
            ApplicationMenuBar::Services{
                .updater = services_.updater,
                .uninstaller = services_.uninstaller,
                .help = helpCommands_,
                .application = services_.presence,
                .mainQueue = services_.mainQueue,
            });
        follow(*mainWindow_);
    }
    return *mainWindow_;
}

SceneWindow& Windows::helpWindow() {
    if (!helpWindow_) {
        helpWindow_ = std::make_unique<SceneWindow>(
            helpWindowScene,
            new HelpView(services_.theme, helpContent(versionText(services_.bundle))));
        follow(*helpWindow_);
    }
    return *helpWindow_;
}

SceneWindow& Windows::extensionWindow() {
    if (!extensionWindow_) {
        extensionWindow_ = std::make_unique<SceneWindow>(
            extensionWindowScene,
            new ExtensionPageView(services_.theme, services_.settings, services_.menus));
        follow(*extensionWindow_);
    }
    return *extensionWindow_;
}

void Windows::show(SceneWindow& window) {
    services_.application.bringToFront(window);
}

void Windows::follow(const SceneWindow& window) {
    QObject::connect(&window, &SceneWindow::closedByUser, &window, [this] { windowClosed(); });
}

void Windows::windowClosed() {
    const std::array windows{mainWindow_.get(), helpWindow_.get(), extensionWindow_.get()};
    const bool isOneShown = std::ranges::any_of(windows, [](const SceneWindow* window) {
        return window != nullptr && window->isVisible();
    });
    if (!isOneShown) {
        lastClosed_();
    }
}

} // namespace blankwell
