#include "app/services/DesktopUninstaller.h"

#include "platform/Bundle.h"
#include "platform/Identifiers.h"
#include "platform/linux/XdgAutostart.h"
#include "platform/linux/update/StagingFolder.h"
#include "shell/ApplicationRegistrations.h"

namespace blankwell {
namespace {

/// What undoes each kind of registration, in this order: folders go last, when they are empty.
std::vector<LinuxInstallationTraces::Undo> undoing(const FileUrl& programFolder,
                                                   const FileUrl& preferences,
                                                   const DesktopUninstaller::Services& services) {
    return {
        [preferences, programFolder] {
            XdgAutostart(preferences, bundleIdentifier, programFolder.appending("blankwell-plus"))
                .forget();
        },
        [bundle = services.bundle.url()] { StagingFolder::remove(bundle); },
        [unregister = services.unregister, &log = services.log] {
            if (const auto done = unregister(); !done) {
                Logger(log, "Uninstaller")
                    .error("Not all is unregistered: {}", done.error().description);
            }
        },
    };
}

} // namespace

DesktopUninstaller::DesktopUninstaller(const FileUrl& programFolder, const FileUrl& preferences,
                                       const UserPlaces& places, const FileUrl& home,
                                       const Services& services)
    : fileManagers_(services.folders, home, services.roots),
      trash_(services.mainQueue),
      traces_(preferences, places.dataHome, undoing(programFolder, preferences, services)),
      uninstaller_({
          .stop = services.stop,
          .alert = services.alert,
          .bundle = services.bundle,
          .fileSystem = services.fileSystem,
          .fileManagers = fileManagers_,
          .trash = trash_,
          .traces = traces_,
          .application = services.application,
          .presence = services.presence,
          .mainQueue = services.mainQueue,
          .timer = services.timer,
          .log = services.log,
      }) {}

} // namespace blankwell
