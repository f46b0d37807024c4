#include "platform/Identifiers.h"
#include "platform/linux/DBusApplication.h"

#include <memory>

extern "C" __attribute__((visibility("default"))) std::unique_ptr<blankwell::SessionApplication>
blankwellMakeSessionApplication() {
    return std::make_unique<blankwell::DBusApplication>(blankwell::bundleIdentifier);
}
