#include "app/application/HotKeys.h"

#include "platform/linux/NoHotKeyService.h"

namespace blankwell {

std::unique_ptr<HotKeyService> makeHotKeyService() {
    return std::make_unique<NoHotKeyService>();
}

} // namespace blankwell
