#pragma once

#include "access/FolderAccessSetupModel.h"
#include "app/BlankwellHelpCommands.h"
#include "app/SystemSettingsPages.h"
#include "settings/ShortcutSettingsView.h"
#include "views/ExtensionStatusModel.h"

#include <functional>
#include <memory>
#include <string_view>

namespace blankwell {

class ApplicationPresence;
class BlankwellSelfUpdater;
class Bundle;
class FileManagerMenusModel;
class LoginItemModel;
class MainQueue;
class QtApplication;
class SceneWindow;
class Theme;
class UninstallFlow;

/// The windows of the application, one of each scene. Each is made when it is first needed and kept
/// until the end. Belongs to the main thread.
class Windows {
public:
    /// What the windows show and do. All must outlive the object.
    struct Services {
        const Theme& theme;
        AppSettings& settings;
        LoginItemModel& loginItem;
        ShortcutSettingsView::Services shortcuts;
        FolderAccessSetupModel::Services folderAccess;
        const Bundle& bundle;
        Workspace& workspace;
        FileManagerMenusModel& menus;
        UninstallFlow& uninstaller;
        BlankwellSelfUpdater& updater;
        ApplicationPresence& presence;
        QtApplication& application;
        MainQueue& mainQueue;
    };

    /// `lastClosed` is called whenever the user has closed the last window that was shown.
    Windows(Services services, std::function<void()> lastClosed);
    ~Windows();

    /// Brings the window of the scene `id` to the front; nothing where there is no such scene.
    void open(std::string_view id);

    void openMainWindow();

private:
    [[nodiscard]] SceneWindow& mainWindow();
    [[nodiscard]] SceneWindow& helpWindow();
    [[nodiscard]] SceneWindow& extensionWindow();
    void show(SceneWindow& window);
    void follow(const SceneWindow& window);
    void windowClosed();

    Services services_;
    std::function<void()> lastClosed_;
    BlankwellHelpCommands helpCommands_;
    SystemSettingsPages settingsPages_;
    ExtensionStatusModel extensionStatus_{settingsPages_};
    std::unique_ptr<SceneWindow> mainWindow_;
    std::unique_ptr<SceneWindow> helpWindow_;
    std::unique_ptr<SceneWindow> extensionWindow_;
};

} // namespace blankwell
