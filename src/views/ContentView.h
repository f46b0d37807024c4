#pragma once

#include "access/FolderAccessSetupModel.h"
#include "settings/ShortcutSettingsView.h"
#include "views/MainWindowContent.h"

#include <QWidget>

#include <functional>

namespace blankwell {

class AppSettings;
class Bundle;
class ExtensionStatusModel;
class LoginItemModel;
class MainQueue;
class Theme;
class UninstallFlow;

/// What the main window shows: its sections one below the other, which scroll.
class ContentView : public QWidget {
    Q_OBJECT

public:
    /// What the sections show and do. All must outlive the object.
    struct Services {
        const Theme& theme;
        AppSettings& settings;
        LoginItemModel& loginItem;
        ShortcutSettingsView::Services shortcuts;
        FolderAccessSetupModel::Services folderAccess;
        const Bundle& bundle;
        ExtensionStatusModel& extensionStatus;
        UninstallFlow& uninstaller;
        MainQueue& mainQueue;
    };

    explicit ContentView(const Services& services, QWidget* parent = nullptr);

private:
    [[nodiscard]] static QWidget* makeSection(MainWindowSection section, const Services& services);
};

} // namespace blankwell
