#pragma once

#include "base/FileUrl.h"

#include <functional>
#include <memory>
#include <vector>

namespace blankwell {

class Account;
class Environment;
class FrontFolder;
class Installation;
class Log;
class LoginItem;
class PreferenceDomains;
class SessionApplication;
class TextOrder;
class Uninstallation;
class WellKnownFolders;
class Workspace;

/// Makes the adapters whose libraries are too slow to load for a program that may not need them.
///
/// They stand in a module of their own beside the programs: a short-lived program loads it when it
/// first needs one of them, a long-lived one at its start. What is made must not outlive this
/// object.
class DesktopServices {
public:
    virtual ~DesktopServices() = default;

    /// The user's order of texts.
    [[nodiscard]] virtual std::unique_ptr<TextOrder> makeTextOrder() = 0;

    [[nodiscard]] virtual std::unique_ptr<Log> makeJournal() = 0;

    /// The start of `program` at login, kept under `configHome`.
    [[nodiscard]] virtual std::unique_ptr<LoginItem> makeLoginItem(const FileUrl& configHome,
                                                                   FileUrl program) = 0;

    /// `log` must outlive the result.
    [[nodiscard]] virtual std::unique_ptr<Workspace> makeWorkspace(Log& log) = 0;

    /// `wellKnown` must outlive the result. `roots` gives the folders that the user works in.
    [[nodiscard]] virtual std::unique_ptr<FrontFolder>
    makeFrontFolder(const WellKnownFolders& wellKnown, FileUrl home,
                    std::function<std::vector<FileUrl>()> roots) = 0;
};

/// The module's one entry: makes its services.
using MakeDesktopServices = std::unique_ptr<DesktopServices> (*)();

/// The name that the entry has in the module.
inline constexpr auto makeDesktopServicesSymbol = "blankwellMakeDesktopServices";

/// The one entry of the module for the session bus, which stands for itself because what hands a
/// request over needs nothing else: makes the application, as other programs of the session ask it.
using MakeSessionApplication = std::unique_ptr<SessionApplication> (*)();

inline constexpr auto makeSessionApplicationSymbol = "blankwellMakeSessionApplication";

/// The one entry of the module for installing and registering: makes the installation of the
/// programs in a folder. All that it is given must outlive the result.
using MakeInstallation = std::unique_ptr<Installation> (*)(const FileUrl& programFolder,
                                                           const Environment& environment,
                                                           const Account& account,
                                                           PreferenceDomains& domains, Log& log);

inline constexpr auto makeInstallationSymbol = "blankwellMakeInstallation";

/// What an uninstallation is made of. All that is referred to must outlive it.
struct UninstallationSurroundings {
    /// Of the programs to remove.
    FileUrl programFolder;
    const Environment& environment;
    const Account& account;
    const WellKnownFolders& folders;
    PreferenceDomains& domains;
    /// The folders that the user works in.
    std::function<std::vector<FileUrl>()> roots;
    Log& log;
};

/// The one entry of the module for removing the application: makes the uninstallation.
using MakeUninstallation =
    std::unique_ptr<Uninstallation> (*)(const UninstallationSurroundings& surroundings);

inline constexpr auto makeUninstallationSymbol = "blankwellMakeUninstallation";

} // namespace blankwell
