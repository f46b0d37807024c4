#pragma once

#include "access/FolderAccess.h"
#include "access/SecurityScopedBookmarkStore.h"
#include "app/FinderRequestHandler.h"
#include "app/cli/CommandRunner.h"
#include "app/cli/ConsoleLog.h"
#include "app/cli/Lazy.h"
#include "app/services/ModuleLoader.h"
#include "filetypes/CreationDestination.h"
#include "filetypes/FileCreator.h"
#include "platform/linux/BundleDirectory.h"
#include "platform/linux/ConsoleAlert.h"
#include "platform/linux/DirectFileCoordinator.h"
#include "platform/linux/DrainedMainQueue.h"
#include "platform/linux/LinuxAccessScopes.h"
#include "platform/linux/LinuxBookmarks.h"
#include "platform/linux/LinuxFileSystem.h"
#include "platform/linux/NoApplication.h"
#include "platform/linux/NoOpenPanel.h"
#include "platform/linux/ProcessEnvironment.h"
#include "platform/linux/ScopedFileSystem.h"
#include "platform/linux/UserDatabaseAccount.h"
#include "platform/linux/XdgWellKnownFolders.h"

namespace blankwell::cli {

/// The command line as a whole: the core on the adapters of a program without windows. What costs
/// time to load is made when a command first needs it.
class Program {
public:
    /// `programFolder` is where the program and its module stand.
    Program(const FileUrl& programFolder, FileUrl currentFolder,
            ConsoleLog::StandardError standardError);

    /// Carries `command` out, and the work that it leaves behind.
    [[nodiscard]] Outcome run(const Command& command);

private:
    [[nodiscard]] FileSystem& writableFiles();
    [[nodiscard]] std::string configHome() const;
    [[nodiscard]] std::unique_ptr<LoginItem> makeLoginItem(const FileUrl& programFolder);
    [[nodiscard]] std::unique_ptr<Installation> makeInstallation();
    [[nodiscard]] std::unique_ptr<Uninstallation> makeUninstallation(const FileUrl& programFolder);

    // In the order of construction.
    ProcessEnvironment environment_;
    UserDatabaseAccount account_{environment_};
    XdgWellKnownFolders folders_{std::nullopt};
    ModuleLoader loader_;
    ConsoleLog log_;
    LazyTextOrder order_;
    LazyWorkspace workspace_;
    LazyFrontFolder frontFolder_;
    LazySessionApplication sessionApplication_;
    LazyLoginItem loginItem_;
    LazyPreferenceDomains domains_;
    LazyInstallation installation_;
    LazyUninstallation uninstallation_;
    LinuxAccessScopes scopes_;
    LinuxBookmarks bookmarks_{scopes_};
    SecurityScopedBookmarkStore store_;
    LinuxFileSystem files_;
    ScopedFileSystem scopedFiles_{files_, scopes_};
    DirectFileCoordinator coordinator_;
    BundleDirectory bundle_;
    FileCreator creator_;
    NoOpenPanel openPanel_;
    NoApplication application_;
    ConsoleAlert alert_;
    DrainedMainQueue mainQueue_;
    FolderAccess folderAccess_;
    CreationDestination destination_;
    FinderRequestHandler requestHandler_;
    CommandRunner runner_;
};

} // namespace blankwell::cli
