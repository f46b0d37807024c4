#pragma once

#include "access/FolderAccess.h"
#include "access/SecurityScopedBookmarkStore.h"
#include "app/AppDelegate.h"
#include "app/FinderRequestHandler.h"
#include "app/RemoteRequests.h"
#include "app/application/DomainWatch.h"
#include "app/application/HotKeys.h"
#include "app/application/LoginItemWatch.h"
#include "app/application/QtQuickCreatePanels.h"
#include "app/application/UpdateJobLoader.h"
#include "app/application/UpdateWindow.h"
#include "app/application/Windows.h"
#include "app/services/DesktopInstallation.h"
#include "app/services/DesktopUninstaller.h"
#include "base/Subscription.h"
#include "filetypes/CreationDestination.h"
#include "filetypes/FileCreator.h"
#include "platform/LoginItem.h"
#include "platform/linux/BundleDirectory.h"
#include "platform/linux/DirectFileCoordinator.h"
#include "platform/linux/FileManagerFrontFolder.h"
#include "platform/linux/FileManagerWorkspace.h"
#include "platform/linux/IcuTextOrder.h"
#include "platform/linux/LinuxAccessScopes.h"
#include "platform/linux/LinuxBookmarks.h"
#include "platform/linux/LinuxFileSystem.h"
#include "platform/linux/ProcessEnvironment.h"
#include "platform/linux/ScopedFileSystem.h"
#include "platform/linux/UserDatabaseAccount.h"
#include "platform/linux/XdgPreferenceDomains.h"
#include "platform/linux/XdgWellKnownFolders.h"
#include "platform/linux/update/BundleUse.h"
#include "platform/linux/update/ThreadedWork.h"
#include "platform/qt/PortalAppearance.h"
#include "platform/qt/QtAlert.h"
#include "platform/qt/QtApplication.h"
#include "platform/qt/QtApplicationPresence.h"
#include "platform/qt/QtMainQueue.h"
#include "platform/qt/QtOpenPanel.h"
#include "platform/qt/QtScreens.h"
#include "platform/qt/QtStatusBar.h"
#include "platform/qt/QtTimer.h"
#include "quickcreate/DesktopCreationController.h"
#include "settings/AppSettings.h"
#include "shell/AppPresenceController.h"
#include "shell/BlankwellSelfUpdater.h"
#include "shell/UnavailableInstallation.h"
#include "updates/StandardUpdaters.h"
#include "views/FileManagerMenusModel.h"
#include "views/LoginItemModel.h"
#include "widgets/Theme.h"

#include <expected>
#include <memory>
#include <optional>
#include <string>

namespace blankwell::application {

struct Invocation;

/// The application as a whole: the core on the adapters of a desktop program.
class Program {
public:
    /// `programFolder` is where the program stands.
    explicit Program(const FileUrl& programFolder);

    /// What other programs ask of this one goes here.
    [[nodiscard]] ApplicationRequests& requests() { return remoteRequests_; }

    /// Starts the controllers and does what `invocation` asks for. The event loop must be about to
    /// run.
    void start(const Invocation& invocation);

    /// Ends in the orderly way; returns at once.
    void terminate() { presence_.terminate(); }

    /// Stops the controllers. To be called when the event loop ends.
    void stop() { delegate_.applicationWillTerminate(); }

    /// The program to run in this process once all has ended; nothing where it ends for good.
    [[nodiscard]] const std::optional<FileUrl>& successor() const { return successor_; }

    /// Does what was asked for and not begun when the event loop ended.
    void finishRequests() { mainQueue_.drain(); }

private:
    [[nodiscard]] FileSystem& writableFiles();
    void keepInstallation();
    std::expected<void, SystemError> unregister();
    void keepReachable();
    void endUnlessReachable();
    void relaunch();
    void removeOldBundles();

    std::optional<FileUrl> successor_;
    // In the order of construction.
    ProcessEnvironment environment_;
    UserDatabaseAccount account_{environment_};
    XdgWellKnownFolders folders_{std::nullopt};
    std::unique_ptr<Log> log_;
    IcuTextOrder order_{collationLocale(environment_)};
    FileManagerWorkspace workspace_{*log_};
    std::string preferences_;
    XdgPreferenceDomains domains_;
    AppSettings settings_;
    DomainWatch settingsWatch_;
    std::unique_ptr<LoginItem> loginItem_;
    LoginItemModel loginItemModel_{*loginItem_};
    LoginItemWatch loginItemWatch_;
    LinuxAccessScopes scopes_;
    LinuxBookmarks bookmarks_{scopes_};
    SecurityScopedBookmarkStore store_{domains_, bookmarks_, order_, *log_};
    FileManagerFrontFolder frontFolder_;
    LinuxFileSystem files_;
    ScopedFileSystem scopedFiles_{files_, scopes_};
    DirectFileCoordinator coordinator_;
    BundleDirectory bundle_;
    FileCreator creator_;
    PortalAppearance appearance_{QDBusConnection::sessionBus()};
    Theme theme_{appearance_};
    QtMainQueue mainQueue_;
    QtApplication application_;
    QtApplicationPresence presence_;
    QtOpenPanel openPanel_;
    QtAlert alert_;
    QtScreens screens_;
    FolderAccess folderAccess_;
    CreationDestination destination_{account_, folders_, frontFolder_};
    FinderRequestHandler requestHandler_;
    HotKeys hotKeys_{environment_, settings_, *log_};
    QtQuickCreatePanels panels_;
    DesktopCreationController creation_;
    RemoteRequests remoteRequests_;
    QtTimer timer_;
    BundleUse bundleUse_;
    UpdateJobLoader updateJob_;
    UpdateWindow updateWindow_;
    ThreadedWork background_;
    StandardUpdaters updaters_;
    BlankwellSelfUpdater selfUpdater_{bundle_, updaters_, mainQueue_};
    DesktopUninstaller uninstaller_;
    QtStatusBar statusBar_;
    AppPresenceController presenceController_;
    AppDelegate delegate_;
    /// Nothing inside of a sandbox.
    std::unique_ptr<DesktopInstallation> installation_;
    UnavailableInstallation noInstallation_;
    FileManagerMenusModel menus_;
    DomainWatch registrationsWatch_;
    Windows windows_;
    Subscription sweep_;
    Subscription enabledTypes_;
    Subscription typeOrder_;
};

} // namespace blankwell::application
