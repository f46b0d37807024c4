#include "shell/BundleInstallation.h"

#include "platform/BundleStore.h"
#include "platform/InstalledPrograms.h"
#include "platform/Registrations.h"
#include "platform/UserDefaults.h"

#include <cerrno>
#include <string>
#include <string_view>
#include <utility>

namespace blankwell {
namespace {

constexpr std::string_view group = "application";
constexpr std::string_view bundleKey = "registeredBundle";

FileUrl programFolderOf(const FileUrl& bundle) {
    return bundle.appending("Contents/Linux");
}

} // namespace

BundleInstallation::BundleInstallation(const Services& services, Running running, UserPlaces places,
                                       FileUrl usualThunarActions)
    : services_(services),
      logger_(services.log, "Installation"),
      running_(std::move(running)),
      places_(std::move(places)),
      usualThunarActions_(std::move(usualThunarActions)) {}

std::expected<FileUrl, SystemError>
BundleInstallation::install(const std::optional<FileUrl>& folder) {
    if (!running_.bundle) {
        return std::unexpected(
            SystemError{SystemError::Domain::posix, ENOENT,
                        "This program is not in a bundle, so there is nothing to install."});
    }
    auto bundle = services_.bundles.copyInto(
        folder.value_or(places_.home.appending("Applications")), *running_.bundle);
    if (!bundle) {
        return bundle;
    }
    const auto registered = registerBundle(*bundle);
    return registered ? bundle : std::unexpected(registered.error());
}

std::expected<void, SystemError> BundleInstallation::unregister() {
    std::expected<void, SystemError> result;
    for (const auto& name : services_.registrations.groups()) {
        const auto cleared = services_.registrations.clear(name);
        result = result ? cleared : result;
    }
    const auto forgotten = services_.list.remove(bundleKey);
    return result ? forgotten : result;
}

std::vector<FileManagerMenuState> BundleInstallation::menuStates() {
    return menusOf(running_.programFolder).states();
}

std::expected<void, SystemError> BundleInstallation::turnMenu(FileManager manager, bool on) {
    return menusOf(running_.programFolder).turn(manager, on);
}

bool BundleInstallation::isRegistered() const {
    return running_.bundle &&
           services_.list.read<std::string>(bundleKey) == running_.bundle->path();
}

void BundleInstallation::mend() {
    if (!running_.bundle || isAnotherRegistered()) {
        return;
    }
    if (isPackaged()) {
        refreshMenus();
        return;
    }
    if (const auto registered = registerBundle(*running_.bundle); !registered) {
        logger_.error("Could not register Blankwell+: {}", registered.error().description);
    }
}

void BundleInstallation::refreshMenus() {
    if (isRegistered() || (isPackaged() && !isAnotherRegistered())) {
        // Failures are in the log, and the next refresh tries again.
        static_cast<void>(menusOf(running_.programFolder).refresh());
    }
}

bool BundleInstallation::isPackaged() const {
    return running_.bundle && running_.form == InstallationForm::package;
}

bool BundleInstallation::isAnotherRegistered() const {
    const auto registered = services_.list.read<std::string>(bundleKey);
    return registered && running_.bundle && *registered != running_.bundle->path() &&
           services_.bundles.stands(FileUrl(*registered));
}

FileManagerMenus BundleInstallation::menusOf(const FileUrl& programFolder) const {
    return {
        {
            .settings = services_.settings,
            .defaults = services_.defaults,
            .registrations = services_.registrations,
            .programs = services_.programs,
            .log = services_.log,
        },
        {
            .dataHome = places_.dataHome,
            .configHome = places_.configHome,
            .usualThunarActions = usualThunarActions_,
            .program = programFolder.appending("blankwell"),
        },
    };
}

std::expected<void, SystemError> BundleInstallation::registerBundle(const FileUrl& bundle) {
    auto result = services_.list.set(bundleKey, bundle.path());
    const auto applied = services_.registrations.set(
        group, applicationRegistrations(bundle, places_, running_.templates));
    result = result ? applied : result;
    const auto refreshed = menusOf(programFolderOf(bundle)).refresh();
    return result ? refreshed : result;
}

} // namespace blankwell
