#include "app/services/DesktopInstallation.h"

#include "platform/Environment.h"
#include "platform/RealHome.h"
#include "platform/UserDefaults.h"
#include "platform/linux/BundleDirectory.h"
#include "platform/linux/FileSnapshot.h"
#include "platform/linux/LinuxInstallationForm.h"
#include "platform/linux/XdgPreferenceDomains.h"

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

namespace blankwell {
namespace {

std::optional<std::string> absolutePath(const Environment& environment, const char* name) {
    auto path = environment.variable(name);
    return path && path->starts_with('/') ? path : std::nullopt;
}

FileUrl usualThunarActions(const Environment& environment) {
    const auto folders = environment.variable("XDG_CONFIG_DIRS").value_or("") + ":/etc/xdg";
    for (std::string_view rest = folders;;) {
        const auto end = rest.find(':');
        auto file = FileUrl(std::string(rest.substr(0, end))).appending("Thunar/uca.xml");
        std::error_code error;
        if (end == std::string_view::npos || std::filesystem::exists(file.path(), error)) {
            return file;
        }
        rest.remove_prefix(end + 1);
    }
}

/// Empty where it cannot be read: the bundle is damaged then.
std::string contentsOf(const FileUrl& url) {
    constexpr std::size_t mostBytes = 64UL * 1024;
    const auto file = FileSnapshot::open(url.path());
    const auto contents = file ? file->contents(mostBytes) : std::unexpected(file.error());
    return contents.value_or("");
}

DesktopTemplates templatesOf(const FileUrl& programFolder) {
    const auto folder = programFolder.deletingLastPathComponent().appending("Resources/desktop");
    return {
        .desktopEntry = contentsOf(folder.appending("app.blankwell.BlankwellPlus.desktop.in")),
        .service = contentsOf(folder.appending("app.blankwell.BlankwellPlus.service.in")),
    };
}

} // namespace

UserPlaces userPlaces(const Environment& environment, const Account& account) {
    const auto home =
        FileUrl(absolutePath(environment, "HOME").value_or(homeFolder(account).path()))
            .standardized();
    const auto dataHome = absolutePath(environment, "XDG_DATA_HOME");
    return {
        .home = home,
        .dataHome = dataHome ? FileUrl(*dataHome).standardized() : home.appending(".local/share"),
        .configHome =
            FileUrl(preferencesDirectory(environment.variable("XDG_CONFIG_HOME"), home.path()))
                .standardized(),
    };
}

DesktopInstallation::DesktopInstallation(const FileUrl& programFolder, const Services& services)
    : DesktopInstallation(programFolder, services,
                          userPlaces(services.environment, services.account)) {}

DesktopInstallation::DesktopInstallation(const FileUrl& programFolder, const Services& services,
                                         const UserPlaces& places)
    : programs_(services.environment),
      registrations_(services.domains.standard(), places.home),
      installation_(
          {
              .settings = services.settings,
              .defaults = sharedDefaults(services.domains),
              .list = services.domains.standard(),
              .registrations = registrations_,
              .programs = programs_,
              .bundles = bundles_,
              .log = services.log,
          },
          {
              .programFolder = programFolder,
              .bundle = BundleDirectory::bundleOf(programFolder),
              .form = installationForm(BundleDirectory(programFolder).url(), services.environment),
              .templates = templatesOf(programFolder),
          },
          places, usualThunarActions(services.environment)) {}

} // namespace blankwell
