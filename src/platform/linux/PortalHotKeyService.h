#pragma once

#include "platform/HotKeyService.h"
#include "platform/linux/GlobalShortcutsPortal.h"
#include "platform/linux/HotKeyHandlers.h"
#include "platform/linux/KeyCombination.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace blankwell {

/// Hot keys as shortcuts that the desktop's portal keeps, as a Wayland session has them. For any
/// event loop.
///
/// The portal answers late, and may ask the user first. So a registration that succeeds says that
/// the desktop is asked: whether it gave a key, and which, the gift handler hears, and the loss
/// handler hears why it did not. Only where the desktop is known to give no shortcuts does the
/// registration itself fail. What is registered and given back between two rounds of the event
/// loop goes to the portal as one set.
///
/// A hot key that is lost stays registered: it works again when a portal that was gone is back, or
/// the user gives a key to it. The desktop may give another key than the one that was asked for,
/// and whether a held key counts once is the desktop's to say. The statuses are Carbon's and those
/// of HotKeyStatuses.h.
class PortalHotKeyService : public HotKeyService {
public:
    /// What the user is told that a key combination does.
    using Describe = std::function<std::string(const KeyCombination&)>;

    /// Begins to ask whether the desktop gives shortcuts. A portal that says nothing for `patience`
    /// counts as gone, except while the user may be choosing.
    explicit PortalHotKeyService(
        Describe describe, std::chrono::milliseconds patience = GlobalShortcutsPortal::patience);

    std::expected<HandlerReference, HotKeyStatus> installHandler(Handler handler) override;
    void removeHandler(HandlerReference handler) override;
    std::expected<HotKeyReference, HotKeyStatus>
    registerHotKey(std::uint32_t keyCode, std::uint32_t carbonModifiers, EventHotKeyID id) override;
    HotKeyStatus unregisterHotKey(HotKeyReference hotKey) override;

    void onLoss(const LossHandler& handler) override { lossHandler_ = handler; }

    void onGift(const GiftHandler& handler) override { giftHandler_ = handler; }

    /// Sets what is told, once for each portal, that the desktop gives no shortcuts at all.
    /// Replaces the previous one.
    void onAbsence(std::function<void()> handler) { absenceHandler_ = std::move(handler); }

    /// Readable, and stays so, while there is something for `processEvents()`. Belongs to this
    /// object.
    [[nodiscard]] int descriptor() const { return portal_.descriptor(); }

    /// Deals with what has arrived and calls the handlers. Never waits.
    void processEvents();

private:
    struct HotKey {
        KeyCombination combination;
        EventHotKeyID id;
    };

    void handlePress(const std::string& shortcut);
    void handleGiven(const GivenShortcuts& given);
    void handleFailure(HotKeyStatus status);
    [[nodiscard]] std::vector<PortalShortcut> shortcuts() const;
    void changeLater();

    Describe describe_;
    HotKeyHandlers handlers_;
    /// By the portal's id.
    std::map<std::string, HotKey> hotKeys_;
    std::map<HotKeyReference, std::string> references_;
    GiftHandler giftHandler_ = [](const auto&...) {};
    LossHandler lossHandler_ = [](const auto&...) {};
    std::function<void()> absenceHandler_ = [] {};
    bool isChanged_ = false;
    std::uint64_t lastReference_ = 0;
    GlobalShortcutsPortal portal_;
};

} // namespace blankwell
