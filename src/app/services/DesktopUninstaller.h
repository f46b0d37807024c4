#pragma once

#include "platform/linux/LinuxInstallationTraces.h"
#include "platform/linux/LinuxTrash.h"
#include "platform/linux/SessionFileManagers.h"
#include "shell/AppUninstaller.h"

#include <expected>
#include <functional>
#include <vector>

namespace blankwell {

class WellKnownFolders;
struct UserPlaces;

/// The uninstaller on the adapters of a Linux desktop.
class DesktopUninstaller {
public:
    /// What the program brings along. All must outlive the object.
    struct Services {
        /// As of `AppUninstaller`.
        std::function<std::expected<void, SystemError>()> stop;
        /// Takes away what makes the application known to the desktop.
        std::function<std::expected<void, SystemError>()> unregister;
        /// The folders that the user works in.
        std::function<std::vector<FileUrl>()> roots;
        const WellKnownFolders& folders;
        Alert& alert;
        const Bundle& bundle;
        const FileSystem& fileSystem;
        Application& application;
        ApplicationPresence& presence;
        MainQueue& mainQueue;
        Timer& timer;
        Log& log;
    };

    /// Of the programs in `programFolder`. `preferences` holds the preference domains; `home` is
    /// the user's.
    DesktopUninstaller(const FileUrl& programFolder, const FileUrl& preferences,
                       const UserPlaces& places, const FileUrl& home, const Services& services);

    [[nodiscard]] AppUninstaller& uninstaller() { return uninstaller_; }

private:
    SessionFileManagers fileManagers_;
    LinuxTrash trash_;
    LinuxInstallationTraces traces_;
    AppUninstaller uninstaller_;
};

} // namespace blankwell
