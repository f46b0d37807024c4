#include "platform/linux/PortalHotKeyService.h"

#include "platform/linux/HotKeyStatuses.h"
#include "platform/linux/PortalTrigger.h"

namespace blankwell {

PortalHotKeyService::PortalHotKeyService(Describe describe, std::chrono::milliseconds patience)
    : describe_(std::move(describe)),
      portal_({
                  .activated = [this](const std::string& shortcut) { handlePress(shortcut); },
                  .given = [this](const GivenShortcuts& given) { handleGiven(given); },
                  .failed = [this](HotKeyStatus status) { handleFailure(status); },
                  .absent = [this] { absenceHandler_(); },
              },
              patience) {}

std::expected<HotKeyService::HandlerReference, HotKeyStatus>
PortalHotKeyService::installHandler(Handler handler) {
    return handlers_.install(std::move(handler));
}

void PortalHotKeyService::removeHandler(HandlerReference handler) {
    handlers_.remove(handler);
}

std::expected<HotKeyService::HotKeyReference, HotKeyStatus>
PortalHotKeyService::registerHotKey(std::uint32_t keyCode, std::uint32_t carbonModifiers,
                                    EventHotKeyID id) {
    const KeyCombination combination{.keyCode = keyCode, .carbonModifiers = carbonModifiers};
    // The trigger is the id as well: so what the desktop remembers is of the keys that the user
    // chose, and a choice of other keys is not overruled by it.
    const auto trigger = portalTrigger(combination);
    if (!trigger) {
        return std::unexpected(eventHotKeyInvalidErr);
    }
    if (hotKeys_.contains(*trigger)) {
        return std::unexpected(eventHotKeyExistsErr);
    }
    if (portal_.presence() == GlobalShortcutsPortal::Presence::unknown) {
        // The answer may be there already.
        portal_.processEvents();
    }
    if (portal_.presence() == GlobalShortcutsPortal::Presence::absent) {
        return std::unexpected(hotKeysUnavailableErr);
    }
    const auto reference = HotKeyReference{++lastReference_};
    hotKeys_.emplace(*trigger, HotKey{.combination = combination, .id = id});
    references_.emplace(reference, *trigger);
    changeLater();
    return reference;
}

HotKeyStatus PortalHotKeyService::unregisterHotKey(HotKeyReference hotKey) {
    const auto found = references_.find(hotKey);
    if (found == references_.end()) {
        return eventHotKeyInvalidErr;
    }
    hotKeys_.erase(found->second);
    references_.erase(found);
    changeLater();
    return noErr;
}

void PortalHotKeyService::processEvents() {
    portal_.processEvents();
    if (std::exchange(isChanged_, false)) {
        portal_.want(shortcuts());
    }
}

void PortalHotKeyService::handlePress(const std::string& shortcut) {
    const auto hotKey = hotKeys_.find(shortcut);
    if (hotKey == hotKeys_.end()) {
        return;
    }
    handlers_.call(hotKey->second.id);
}

void PortalHotKeyService::handleGiven(const GivenShortcuts& given) {
    if (isChanged_) {
        return; // it is not of what is registered now, and another answer follows
    }
    for (const auto hotKeys = hotKeys_; const auto& [shortcut, hotKey] : hotKeys) {
        const auto found = given.find(shortcut);
        if (found == given.end()) {
            lossHandler_(hotKey.id, hotKeyDeniedErr);
        } else if (found->second == "") {
            lossHandler_(hotKey.id, hotKeyNoKeyErr);
        } else {
            giftHandler_(hotKey.id, found->second.value_or(""));
        }
    }
}

void PortalHotKeyService::handleFailure(HotKeyStatus status) {
    if (isChanged_) {
        return; // what is registered now is yet to be asked for
    }
    for (const auto hotKeys = hotKeys_; const auto& [shortcut, hotKey] : hotKeys) {
        lossHandler_(hotKey.id, status);
    }
}

std::vector<PortalShortcut> PortalHotKeyService::shortcuts() const {
    std::vector<PortalShortcut> shortcuts;
    shortcuts.reserve(hotKeys_.size());
    for (const auto& [trigger, hotKey] : hotKeys_) {
        shortcuts.push_back(
            {.id = trigger, .description = describe_(hotKey.combination), .trigger = trigger});
    }
    return shortcuts;
}

void PortalHotKeyService::changeLater() {
    isChanged_ = true;
    portal_.wakeUp();
}

} // namespace blankwell
