#pragma once

#include "platform/linux/UnavailableHotKeyService.h"

#include <memory>

namespace blankwell {

class AppSettings;
class Environment;
class Log;

/// The hot keys of the desktop that the application runs on, served by Qt's event loop: key grabs
/// on an X server, shortcuts of the desktop's portal in a Wayland session. Where the desktop gives
/// no keys away, registrations fail with a status.
class HotKeys {
public:
    /// `settings` say what each hot key does. All must outlive this object.
    HotKeys(const Environment& environment, const AppSettings& settings, Log& log);
    ~HotKeys();

    [[nodiscard]] HotKeyService& service();

private:
    struct FromXServer;
    struct FromPortal;

    std::unique_ptr<FromXServer> fromXServer_;
    std::unique_ptr<FromPortal> fromPortal_;
    UnavailableHotKeyService unavailable_;
};

} // namespace blankwell
