#pragma once

#include "base/ObjectWillChange.h"
#include "base/Published.h"
#include "base/Subscription.h"
#include "platform/HotKeyService.h"
#include "platform/Log.h"
#include "settings/HotKeyAction.h"
#include "settings/HotKeyFailures.h"
#include "settings/QuickCreateShortcut.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>

namespace blankwell {

class MainQueue;

/// The user's shortcuts, working in every program: holds the registrations and turns a press into
/// an action.
///
/// What is registered is always the set given last, or nothing while suspended. All of it is
/// released with this object, and no action is dispatched any more. Belongs to the main thread.
class GlobalHotKeyManager {
private:
    ObjectWillChange willChange_; // in front of the property, which announces through it

public:
    using Dispatch = std::function<void(const HotKeyAction&)>;

    /// Calls `dispatch` from the main queue for each press. The ports must outlive this object.
    GlobalHotKeyManager(HotKeyService& service, MainQueue& mainQueue, Log& log, Dispatch dispatch);
    ~GlobalHotKeyManager();

    GlobalHotKeyManager(const GlobalHotKeyManager&) = delete;
    GlobalHotKeyManager& operator=(const GlobalHotKeyManager&) = delete;

    /// The shortcuts that the system refused or took back, as far as they are still wanted.
    Published<HotKeyFailures> failures;

    /// Replaces all registrations. A shortcut that cannot be registered is logged and left out, as
    /// is one that is given twice; without a handler none is registered. While suspended the
    /// shortcuts wait for the end of that.
    void registerShortcuts(const QuickCreateShortcut& quickCreate,
                           const std::map<std::string, QuickCreateShortcut>& fileTypeShortcuts);

    /// Gives all keys back, and wants none any more.
    void unregisterAll();

    /// Gives all keys back for as long as the returned value lasts, so that they reach the window
    /// with the keyboard. When the last suspension ends, what was given last is registered, and
    /// `failures` says what could not be.
    ///
    /// A key that is held down at that moment counts as pressed as soon as it repeats.
    Subscription suspend();

    /// Whether any shortcut is registered now.
    [[nodiscard]] bool hasRegistrations() const { return !hotKeyRefs_.empty(); }

private:
    /// What is to be registered.
    struct Wanted {
        QuickCreateShortcut quickCreate;
        std::map<std::string, QuickCreateShortcut> fileTypes;
    };

    /// One registration of all that is wanted.
    struct Attempt {
        std::unordered_set<QuickCreateShortcut> taken;
        HotKeyFailures failures;
    };

    void resume();
    void registerWanted();
    void releaseAll();
    [[nodiscard]] bool installHandler();
    void registerShortcut(const QuickCreateShortcut& shortcut, std::uint32_t id,
                          HotKeyAction action, Attempt& attempt);
    void publish(HotKeyFailures newFailures);
    void lose(EventHotKeyID hotKey, HotKeyStatus status);
    void regain(EventHotKeyID hotKey, const std::string& key);
    [[nodiscard]] const HotKeyAction* actionOf(const EventHotKeyID& hotKey) const;
    HotKeyStatus handle(const HotKeyEvent& event);

    HotKeyService& service_;
    MainQueue& mainQueue_;
    /// Shared with the dispatches that wait in the queue, which end with this object.
    std::shared_ptr<Dispatch> dispatch_;
    std::optional<Wanted> wanted_;
    int suspensions_ = 0;
    std::map<std::uint32_t, HotKeyService::HotKeyReference> hotKeyRefs_;
    std::map<std::uint32_t, HotKeyAction> actionsByID_;
    std::optional<HotKeyService::HandlerReference> eventHandlerRef_;
    Logger logger_;
};

} // namespace blankwell
