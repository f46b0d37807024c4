#pragma once

#include "platform/HotKeyService.h"
#include "platform/Log.h"
#include "settings/HotKeyAction.h"
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
/// What is registered is always the set given last. All of it is released with this object, and no
/// action is dispatched any more. Belongs to the main thread.
class GlobalHotKeyManager {
public:
    using Dispatch = std::function<void(const HotKeyAction&)>;

    /// Calls `dispatch` from the main queue for each press. The ports must outlive this object.
    GlobalHotKeyManager(HotKeyService& service, MainQueue& mainQueue, Log& log, Dispatch dispatch);
    ~GlobalHotKeyManager();

    GlobalHotKeyManager(const GlobalHotKeyManager&) = delete;
    GlobalHotKeyManager& operator=(const GlobalHotKeyManager&) = delete;

    /// Replaces all registrations. A shortcut that cannot be registered is logged and left out, as
    /// is one that is given twice; without a handler none is registered.
    void registerShortcuts(const QuickCreateShortcut& quickCreate,
                           const std::map<std::string, QuickCreateShortcut>& fileTypeShortcuts);

    /// Gives all keys back.
    void unregisterAll();

private:
    using Shortcuts = std::unordered_set<QuickCreateShortcut>;

    [[nodiscard]] bool installHandler();
    void registerShortcut(const QuickCreateShortcut& shortcut, std::uint32_t id,
                          HotKeyAction action, Shortcuts& taken);
    HotKeyStatus handle(const HotKeyEvent& event);

    HotKeyService& service_;
    MainQueue& mainQueue_;
    /// Shared with the dispatches that wait in the queue, which end with this object.
    std::shared_ptr<Dispatch> dispatch_;
    std::map<std::uint32_t, HotKeyService::HotKeyReference> hotKeyRefs_;
    std::map<std::uint32_t, HotKeyAction> actionsByID_;
    std::optional<HotKeyService::HandlerReference> eventHandlerRef_;
    Logger logger_;
};

} // namespace blankwell
