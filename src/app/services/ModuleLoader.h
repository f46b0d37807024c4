#pragma once

#include "app/services/DesktopServices.h"
#include "base/FileUrl.h"

#include <memory>
#include <utility>

namespace blankwell {

/// What the modules in a program's folder make, each loaded at first use. Where one cannot be
/// loaded, the installation is damaged: that ends the process with a message on standard error and
/// status 1.
class ModuleLoader {
public:
    explicit ModuleLoader(FileUrl programFolder) : programFolder_(std::move(programFolder)) {}

    /// The services, which live as long as this object.
    [[nodiscard]] DesktopServices& services();

    /// The application, as other programs of the session ask it.
    [[nodiscard]] std::unique_ptr<SessionApplication> makeSessionApplication() const;

    /// The installation of the programs in this folder. All must outlive the result.
    [[nodiscard]] std::unique_ptr<Installation> makeInstallation(const Environment& environment,
                                                                 const Account& account,
                                                                 PreferenceDomains& domains,
                                                                 Log& log) const;

    /// The removal of the programs in this folder, and what `surroundings` else holds.
    [[nodiscard]] std::unique_ptr<Uninstallation>
    makeUninstallation(const UninstallationSurroundings& surroundings) const;

private:
    [[nodiscard]] void* entry(const char* moduleName, const char* symbol) const;

    FileUrl programFolder_;
    std::unique_ptr<DesktopServices> services_;
};

} // namespace blankwell
