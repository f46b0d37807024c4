#pragma once

#include "platform/HotKeyService.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/HotKeyHandlers.h"
#include "platform/linux/X11GlobalKeys.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace blankwell {

/// Hot keys as key grabs on an X server, over a connection of its own. For any event loop.
///
/// A hot key works by the place of its key, whatever layout, locks or window there is, and goes on
/// to work when the keyboard map changes. One that cannot be kept is lost: the loss handler hears
/// of it, and it is registered no more. The statuses are Carbon's and those of HotKeyStatuses.h.
///
/// An X server that goes away takes the hot keys with it and nothing else. Not to be destroyed from
/// one of its handlers.
class X11HotKeyService : public HotKeyService {
public:
    /// Connects to `display`, or where that is empty to what `DISPLAY` names. Without an X server
    /// there, every registration fails.
    explicit X11HotKeyService(const std::string& display = "");

    std::expected<HandlerReference, HotKeyStatus> installHandler(Handler handler) override;
    void removeHandler(HandlerReference handler) override;
    std::expected<HotKeyReference, HotKeyStatus>
    registerHotKey(std::uint32_t keyCode, std::uint32_t carbonModifiers, EventHotKeyID id) override;
    HotKeyStatus unregisterHotKey(HotKeyReference hotKey) override;

    void onLoss(const LossHandler& handler) override { lossHandler_ = handler; }

    /// Readable, and stays so, while there is something for `processEvents()`. Belongs to this
    /// object.
    [[nodiscard]] int descriptor() const { return readiness_.get(); }

    /// Deals with all that has arrived and calls the handlers. Never waits for a key.
    void processEvents();

private:
    struct HotKey {
        KeyCombination combination;
        EventHotKeyID id;
    };

    using HotKeys = std::map<HotKeyReference, HotKey>;

    /// What there is to do after the events.
    enum class Then : std::uint8_t { done, mapChanged };

    [[nodiscard]] bool watch(int descriptor) const;
    void wakeUp() const;
    void forgetWakeUps() const;
    [[nodiscard]] HotKeys::const_iterator find(const KeyCombination& combination) const;
    [[nodiscard]] HotKeyStatus take(const KeyCombination& combination);
    [[nodiscard]] Then handleEvents();
    void handlePress(const KeyCombination& combination);
    void handleMapChange();
    void takeAll();
    void loseAll();

    FileDescriptor wakeUps_;
    FileDescriptor readiness_;
    /// Null where there is no X server, or none any more.
    std::unique_ptr<X11GlobalKeys> keys_;
    HotKeyHandlers handlers_;
    HotKeys hotKeys_;
    LossHandler lossHandler_ = [](const auto&...) {};
    std::uint64_t lastReference_ = 0;
};

} // namespace blankwell
