#include "app/services/ModuleLoader.h"

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>

namespace blankwell {
namespace {

constexpr auto moduleName = "libblankwell-services.so";

[[noreturn]] void fail(const char* problem) {
    std::fprintf(stderr, "blankwell: the installation is damaged: %s\n", problem);
    std::exit(EXIT_FAILURE);
}

} // namespace

DesktopServices& ModuleLoader::services() {
    if (!services_) {
        const auto path = programFolder_.appending(moduleName).path();
        // Never closed: what the services made may still be in use while the process ends.
        void* const module = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
        void* const entry =
            module == nullptr ? nullptr : ::dlsym(module, makeDesktopServicesSymbol);
        if (entry == nullptr) {
            fail(::dlerror());
        }
        services_ = reinterpret_cast<MakeDesktopServices>(entry)();
    }
    return *services_;
}

} // namespace blankwell
