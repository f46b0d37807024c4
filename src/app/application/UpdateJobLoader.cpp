#include "app/application/UpdateJobLoader.h"

#include <fmt/core.h>

#include <dlfcn.h>

#include <utility>

namespace blankwell {

UpdateJobLoader::UpdateJobLoader(FileUrl programFolder, std::string certificates,
                                 const BundleUse& running)
    : programFolder_(std::move(programFolder)),
      certificates_(std::move(certificates)),
      running_(running) {}

std::expected<UpdateJob*, UpdateFailure> UpdateJobLoader::load() {
    if (job_) {
        return &*job_;
    }
    const auto path = programFolder_.appending("libblankwell-updates.so").path();
    // Never closed: what it made is in use until the end.
    void* const module = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    void* const make = module == nullptr ? nullptr : ::dlsym(module, makeUpdateServicesSymbol);
    if (make == nullptr) {
        return std::unexpected(UpdateFailure{
            UpdateFailure::Reason::disk,
            fmt::format("This installation of Blankwell+ is damaged: {}.", ::dlerror())});
    }
    services_ = reinterpret_cast<MakeUpdateServices>(make)(certificates_, running_);
    return &job_.emplace(*services_.transfers, *services_.installer);
}

} // namespace blankwell
