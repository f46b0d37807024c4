#pragma once

#include "platform/HotKeyService.h"

namespace blankwell {

/// The hot keys of a desktop that gives none away: every registration fails.
class NoHotKeyService : public HotKeyService {
public:
    /// What every registration comes to.
    static constexpr HotKeyStatus unavailable = 1001;

    [[nodiscard]] std::expected<HandlerReference, HotKeyStatus>
    installHandler(Handler /*handler*/) override {
        return HandlerReference{};
    }

    void removeHandler(HandlerReference /*handler*/) override {}

    [[nodiscard]] std::expected<HotKeyReference, HotKeyStatus>
    registerHotKey(std::uint32_t /*keyCode*/, std::uint32_t /*carbonModifiers*/,
                   EventHotKeyID /*id*/) override {
        return std::unexpected(unavailable);
    }

    HotKeyStatus unregisterHotKey(HotKeyReference /*hotKey*/) override { return unavailable; }
};

} // namespace blankwell
