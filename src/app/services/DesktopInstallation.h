#pragma once

#include "platform/linux/LinuxBundleStore.h"
#include "platform/linux/LinuxRegistrations.h"
#include "platform/linux/PathPrograms.h"
#include "shell/BundleInstallation.h"

namespace blankwell {

class Account;
class Environment;
class PreferenceDomains;

/// Where the programs of this session look for what extends them: unlike the settings, that follows
/// the home of the session and not of the account.
[[nodiscard]] UserPlaces userPlaces(const Environment& environment, const Account& account);

/// The installation on the adapters of a Linux desktop.
class DesktopInstallation {
public:
    struct Services {
        const Environment& environment;
        const Account& account;
        const AppSettings& settings;
        PreferenceDomains& domains;
        Log& log;
    };

    /// Of the programs in `programFolder`. All must outlive this object.
    DesktopInstallation(const FileUrl& programFolder, const Services& services);

    [[nodiscard]] BundleInstallation& installation() { return installation_; }

private:
    DesktopInstallation(const FileUrl& programFolder, const Services& services,
                        const UserPlaces& places);

    PathPrograms programs_;
    LinuxBundleStore bundles_;
    LinuxRegistrations registrations_;
    BundleInstallation installation_;
};

} // namespace blankwell
