#include "app/services/ModuleLoader.h"

#include "platform/SessionApplication.h"
#include "shell/Installation.h"
#include "shell/Uninstallation.h"

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>

namespace blankwell {
namespace {

constexpr auto servicesModule = "libblankwell-services.so";
constexpr auto sessionBusModule = "libblankwell-session-bus.so";
constexpr auto installationModule = "libblankwell-installation.so";
constexpr auto uninstallerModule = "libblankwell-uninstaller.so";

[[noreturn]] void fail(const char* problem) {
    std::fprintf(stderr, "blankwell: the installation is damaged: %s\n", problem);
    std::exit(EXIT_FAILURE);
}

} // namespace

DesktopServices& ModuleLoader::services() {
    if (!services_) {
        void* const make = entry(servicesModule, makeDesktopServicesSymbol);
        services_ = reinterpret_cast<MakeDesktopServices>(make)();
    }
    return *services_;
}

std::unique_ptr<SessionApplication> ModuleLoader::makeSessionApplication() const {
    void* const make = entry(sessionBusModule, makeSessionApplicationSymbol);
    return reinterpret_cast<MakeSessionApplication>(make)();
}

std::unique_ptr<Installation> ModuleLoader::makeInstallation(const Environment& environment,
                                                             const Account& account,
                                                             PreferenceDomains& domains,
                                                             Log& log) const {
    void* const make = entry(installationModule, makeInstallationSymbol);
    return reinterpret_cast<MakeInstallation>(make)(programFolder_, environment, account, domains,
                                                    log);
}

std::unique_ptr<Uninstallation>
ModuleLoader::makeUninstallation(const UninstallationSurroundings& surroundings) const {
    void* const make = entry(uninstallerModule, makeUninstallationSymbol);
    return reinterpret_cast<MakeUninstallation>(make)(surroundings);
}

void* ModuleLoader::entry(const char* moduleName, const char* symbol) const {
    const auto path = programFolder_.appending(moduleName).path();
    // Never closed: what the module made may still be in use while the process ends.
    void* const module = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    void* const found = module == nullptr ? nullptr : ::dlsym(module, symbol);
    if (found == nullptr) {
        fail(::dlerror());
    }
    return found;
}

} // namespace blankwell
