#pragma once

#include "platform/HotKeyService.h"

#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace blankwell {

/// A press whose id reads as scripted.
class FakeHotKeyEvent : public HotKeyEvent {
public:
    explicit FakeHotKeyEvent(std::expected<EventHotKeyID, HotKeyStatus> id) : id_(id) {}

    std::expected<EventHotKeyID, HotKeyStatus> hotKeyID() const override { return id_; }

private:
    std::expected<EventHotKeyID, HotKeyStatus> id_;
};

/// Hot keys of a keyboard that the test presses. A key is taken once, as on a real desktop.
class FakeHotKeyService : public HotKeyService {
public:
    /// The key code and the modifier mask.
    using Combination = std::pair<std::uint32_t, std::uint32_t>;

    struct Registered {
        HotKeyReference reference;
        Combination combination;
        EventHotKeyID id;
    };

    /// What a shortcut without a key has in the place of its key code.
    static constexpr std::uint32_t noKeyCode = 0xFFFFFFFF;

    std::expected<HandlerReference, HotKeyStatus> installHandler(Handler handler) override {
        ++installations;
        if (failInstallationWith != noErr) {
            return std::unexpected(failInstallationWith);
        }
        const auto reference = HandlerReference{++lastReference_};
        handlers.emplace(reference, std::move(handler));
        return reference;
    }

    void removeHandler(HandlerReference handler) override { handlers.erase(handler); }

    std::expected<HotKeyReference, HotKeyStatus> registerHotKey(std::uint32_t keyCode,
                                                                std::uint32_t carbonModifiers,
                                                                EventHotKeyID id) override {
        const Combination combination{keyCode, carbonModifiers};
        ++registrations;
        if (const auto scripted = failures.find(combination); scripted != failures.end()) {
            return std::unexpected(scripted->second);
        }
        if (keyCode == noKeyCode) {
            return std::unexpected(eventHotKeyInvalidErr);
        }
        if (find(combination) != nullptr) {
            return std::unexpected(eventHotKeyExistsErr);
        }
        const auto reference = HotKeyReference{++lastReference_};
        registered.push_back({reference, combination, id});
        return reference;
    }

    void onLoss(const LossHandler& handler) override { lossHandler = handler; }

    void onGift(const GiftHandler& handler) override { giftHandler = handler; }

    /// Takes a registered hot key away as the desktop may at any time.
    void lose(Combination combination, HotKeyStatus status) {
        lossHandler(find(combination)->id, status);
    }

    /// Gives a registered hot key as a desktop does that had to be asked.
    void give(Combination combination, const std::string& key) {
        giftHandler(find(combination)->id, key);
    }

    HotKeyStatus unregisterHotKey(HotKeyReference hotKey) override {
        ++unregistrations;
        const auto erased = std::erase_if(
            registered, [&](const Registered& one) { return one.reference == hotKey; });
        return erased == 0 ? eventHotKeyInvalidErr : unregistrationStatus;
    }

    /// Presses a key combination as the user does; nothing where it reaches no handler.
    std::optional<HotKeyStatus> press(std::uint32_t keyCode, std::uint32_t carbonModifiers) {
        const auto* const found = find({keyCode, carbonModifiers});
        return found == nullptr ? std::nullopt : deliver(FakeHotKeyEvent(found->id));
    }

    /// Hands `event` to the handlers; nothing where there is none.
    std::optional<HotKeyStatus> deliver(const HotKeyEvent& event) {
        std::optional<HotKeyStatus> status;
        for (const auto& [reference, handler] : handlers) {
            status = handler(event);
        }
        return status;
    }

    /// The numbers of the ids that are registered, in the order of registration.
    [[nodiscard]] std::vector<std::uint32_t> registeredIDs() const {
        std::vector<std::uint32_t> ids;
        for (const auto& one : registered) {
            ids.push_back(one.id.id);
        }
        return ids;
    }

    std::map<HandlerReference, Handler> handlers;
    LossHandler lossHandler = [](auto...) {};
    GiftHandler giftHandler = [](const auto&...) {};
    std::vector<Registered> registered;
    HotKeyStatus failInstallationWith = noErr;
    /// The status of each combination that cannot be registered.
    std::map<Combination, HotKeyStatus> failures;
    HotKeyStatus unregistrationStatus = noErr;
    int installations = 0;
    int registrations = 0;
    int unregistrations = 0;

private:
    [[nodiscard]] const Registered* find(const Combination& combination) const {
        for (const auto& one : registered) {
            if (one.combination == combination) {
                return &one;
            }
        }
        return nullptr;
    }

    std::uint64_t lastReference_ = 0;
};

} // namespace blankwell
