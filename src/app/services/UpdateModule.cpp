#include "app/services/UpdateServices.h"
#include "platform/linux/update/BundleInstaller.h"
#include "platform/linux/update/CurlUpdateTransfers.h"

#include <utility>

extern "C" __attribute__((visibility("default"))) blankwell::UpdateServices
blankwellMakeUpdateServices(std::string certificates, const blankwell::BundleUse& running) {
    return {
        .transfers = std::make_unique<blankwell::CurlUpdateTransfers>(std::move(certificates)),
        .installer = std::make_unique<blankwell::BundleInstaller>(running),
    };
}
