#pragma once

#include "platform/linux/UnavailableHotKeyService.h"

#include <memory>

namespace blankwell {

class Environment;

/// The hot keys of the desktop that the application runs on, served by Qt's event loop. Where the
/// desktop gives no keys away, registrations fail with a status.
class HotKeys {
public:
    explicit HotKeys(const Environment& environment);
    ~HotKeys();

    [[nodiscard]] HotKeyService& service();

private:
    struct FromXServer;

    std::unique_ptr<FromXServer> fromXServer_;
    UnavailableHotKeyService unavailable_;
};

} // namespace blankwell
