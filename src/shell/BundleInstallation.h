#pragma once

#include "platform/InstallationForm.h"
#include "platform/Log.h"
#include "shell/ApplicationRegistrations.h"
#include "shell/Installation.h"

#include <optional>
#include <string>
#include <string_view>

namespace blankwell {

class AppSettings;
class BundleStore;
class InstalledPrograms;
class Registrations;
class UserDefaults;

/// The installation of the bundle that the process runs from. Belongs to the main thread.
class BundleInstallation : public Installation {
public:
    /// All must outlive the object.
    struct Services {
        const AppSettings& settings;
        /// Keeps the user's choice of menus.
        UserDefaults& defaults;
        /// Keeps which bundle is registered.
        UserDefaults& list;
        Registrations& registrations;
        const InstalledPrograms& programs;
        BundleStore& bundles;
        Log& log;
    };

    struct Running {
        /// The folder of the programs.
        FileUrl programFolder;
        /// The bundle that they are in; nothing in a build tree.
        std::optional<FileUrl> bundle;
        /// How it came here.
        InstallationForm form;
        DesktopTemplates templates;
    };

    BundleInstallation(const Services& services, Running running, UserPlaces places,
                       FileUrl usualThunarActions);

    std::expected<FileUrl, SystemError> install(const std::optional<FileUrl>& folder) override;
    std::expected<void, SystemError> unregister() override;
    [[nodiscard]] std::vector<FileManagerMenuState> menuStates() override;
    std::expected<void, SystemError> turnMenu(FileManager manager, bool on) override;

    /// Whether the running bundle is the registered one.
    [[nodiscard]] bool isRegistered() const;

    /// Registers the running bundle where no other is registered that still stands, and puts right
    /// what is missing or out of date. Failures are logged. Does nothing outside of a bundle, and
    /// for a bundle that a package of the system brought, which registers it for all users.
    void mend();

    /// Brings the menus up to date, if the running bundle is the registered one or was brought by a
    /// package.
    void refreshMenus();

private:
    [[nodiscard]] bool isPackaged() const;
    [[nodiscard]] bool isAnotherRegistered() const;
    [[nodiscard]] bool isMoved() const;
    std::expected<FileUrl, SystemError> copyInto(const FileUrl& folder);
    std::expected<void, SystemError> remember(std::string_view key,
                                              const std::optional<std::string>& value);
    [[nodiscard]] FileManagerMenus menusOf(const FileUrl& programFolder) const;
    std::expected<void, SystemError> registerBundle(const FileUrl& bundle);

    Services services_;
    Logger logger_;
    Running running_;
    UserPlaces places_;
    FileUrl usualThunarActions_;
};

} // namespace blankwell
