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
constexpr std::string_view placeGroup = "place";
constexpr std::string_view bundleKey = "registeredBundle";
constexpr std::string_view identityKey = "registeredBundleIdentity";

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
    const auto usual = places_.home.appending("Applications");
    auto bundle = !folder && isMoved() ? *running_.bundle : copyInto(folder.value_or(usual));
    if (!bundle) {
        return bundle;
    }
    const auto registered = registerBundle(*bundle);
    return registered ? bundle : std::unexpected(registered.error());
}

std::expected<void, SystemError> BundleInstallation::unregister() {
    std::expected<void, SystemError> result;
    const auto note = [&](const std::expected<void, SystemError>& done) {
        result = result ? done : result;
    };
    const bool stands = running_.bundle && services_.bundles.stands(*running_.bundle);
    for (const auto& name : services_.registrations.groups()) {
        if (name != placeGroup || !stands) {
            note(services_.registrations.clear(name));
        }
    }
    note(services_.list.remove(bundleKey));
    note(services_.list.remove(identityKey));
    return result;
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

/// Whether the running bundle is the registered one at another place.
bool BundleInstallation::isMoved() const {
    const auto registered = services_.list.read<std::string>(bundleKey);
    const auto identity = services_.list.read<std::string>(identityKey);
    return registered && identity && !services_.bundles.stands(FileUrl(*registered)) &&
           services_.bundles.identity(*running_.bundle) == identity;
}

std::expected<FileUrl, SystemError> BundleInstallation::copyInto(const FileUrl& folder) {
    const auto place = folder.appending(running_.bundle->lastPathComponent());
    // First, so that the folders that are made are known as ours.
    if (const auto listed = services_.registrations.set(placeGroup, {RegisteredPlace{place}});
        !listed) {
        return std::unexpected(listed.error());
    }
    auto copied = services_.bundles.copyInto(folder, *running_.bundle);
    if (!copied && services_.list.read<std::string>(bundleKey) != place.path()) {
        // What failed to come is told; folders that cannot go either stay.
        static_cast<void>(services_.registrations.clear(placeGroup));
    }
    return copied;
}

/// Without a value the key is absent.
std::expected<void, SystemError>
BundleInstallation::remember(std::string_view key, const std::optional<std::string>& value) {
    if (!value) {
        return services_.list.remove(key);
    }
    return services_.list.read<std::string>(key) == value ? std::expected<void, SystemError>()
                                                          : services_.list.set(key, *value);
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
    auto result = remember(bundleKey, bundle.path());
    const auto identified = remember(identityKey, services_.bundles.identity(bundle));
    result = result ? identified : result;
    const auto applied = services_.registrations.set(
        group, applicationRegistrations(bundle, places_, running_.templates));
    result = result ? applied : result;
    const auto refreshed = menusOf(programFolderOf(bundle)).refresh();
    return result ? refreshed : result;
}

} // namespace blankwell
