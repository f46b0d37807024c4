#pragma once

#include "platform/HotKeyService.h"
#include "platform/linux/HotKeyStatuses.h"

namespace blankwell {

/// The hot keys of a desktop that gives no keys away: none can be had. The command line, run by a
/// key binding of the desktop's own, is what users have there.
class UnavailableHotKeyService : public HotKeyService {
public:
    std::expected<HandlerReference, HotKeyStatus> installHandler(Handler /*handler*/) override {
        return HandlerReference{};
    }

    void removeHandler(HandlerReference /*handler*/) override {}

    std::expected<HotKeyReference, HotKeyStatus> registerHotKey(std::uint32_t /*keyCode*/,
                                                                std::uint32_t /*carbonModifiers*/,
                                                                EventHotKeyID /*id*/) override {
        return std::unexpected(hotKeysUnavailableErr);
    }

    HotKeyStatus unregisterHotKey(HotKeyReference /*hotKey*/) override {
        return eventHotKeyInvalidErr;
    }
};

} // namespace blankwell
