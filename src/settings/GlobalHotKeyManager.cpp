#include "settings/GlobalHotKeyManager.h"

#include "platform/MainQueue.h"

#include <string_view>
#include <utility>

namespace blankwell {
namespace {

constexpr std::uint32_t fourCharacterCode(std::string_view characters) {
    std::uint32_t code = 0;
    for (const char character : characters) {
        code = code * 256 + static_cast<unsigned char>(character);
    }
    return code;
}

constexpr std::uint32_t signature = fourCharacterCode("BWHK");
constexpr std::uint32_t quickCreateID = 1;
constexpr std::uint32_t firstFileTypeID = 100;

} // namespace

GlobalHotKeyManager::GlobalHotKeyManager(HotKeyService& service, MainQueue& mainQueue, Log& log,
                                         Dispatch dispatch)
    : service_(service),
      mainQueue_(mainQueue),
      dispatch_(std::make_shared<Dispatch>(std::move(dispatch))),
      logger_(log, "GlobalHotKey") {}

GlobalHotKeyManager::~GlobalHotKeyManager() {
    unregisterAll();
    if (eventHandlerRef_) {
        service_.removeHandler(*eventHandlerRef_);
    }
}

void GlobalHotKeyManager::registerShortcuts(
    const QuickCreateShortcut& quickCreate,
    const std::map<std::string, QuickCreateShortcut>& fileTypeShortcuts) {
    unregisterAll();
    if (!installHandler()) {
        return;
    }
    Shortcuts taken;
    registerShortcut(quickCreate, quickCreateID, {HotKeyAction::QuickCreate{}}, taken);
    auto id = firstFileTypeID;
    for (const auto& [fileTypeID, shortcut] : fileTypeShortcuts) {
        registerShortcut(shortcut, id, {HotKeyAction::CreateFile{fileTypeID}}, taken);
        ++id;
    }
}

void GlobalHotKeyManager::unregisterAll() {
    for (const auto& [id, reference] : hotKeyRefs_) {
        // A key that cannot be given back is lost to us in any case.
        (void)service_.unregisterHotKey(reference);
    }
    hotKeyRefs_.clear();
    actionsByID_.clear();
}

bool GlobalHotKeyManager::installHandler() {
    if (eventHandlerRef_) {
        return true;
    }
    const auto installed =
        service_.installHandler([this](const HotKeyEvent& event) { return handle(event); });
    if (!installed) {
        logger_.error("Failed to install hot key handler: {}", installed.error());
        return false;
    }
    eventHandlerRef_ = *installed;
    return true;
}

void GlobalHotKeyManager::registerShortcut(const QuickCreateShortcut& shortcut, std::uint32_t id,
                                           HotKeyAction action, Shortcuts& taken) {
    if (!shortcut.isUsable()) {
        return;
    }
    const auto name = shortcut.displayString();
    if (!taken.insert(shortcut).second) {
        logger_.error("Skipping duplicate {} hot key", name);
        return;
    }
    const auto reference = service_.registerHotKey(shortcut.keyCode, shortcut.carbonModifiers,
                                                   {.signature = signature, .id = id});
    if (!reference) {
        logger_.error("Failed to register {} hot key: {}", name, reference.error());
        return;
    }
    hotKeyRefs_.emplace(id, *reference);
    actionsByID_.emplace(id, std::move(action));
    logger_.notice("Registered {} hot key", name);
}

HotKeyStatus GlobalHotKeyManager::handle(const HotKeyEvent& event) {
    const auto hotKey = event.hotKeyID();
    if (!hotKey || hotKey->signature != signature) {
        return noErr;
    }
    const auto action = actionsByID_.find(hotKey->id);
    if (action == actionsByID_.end()) {
        return noErr;
    }
    mainQueue_.async([action = action->second, weak = std::weak_ptr(dispatch_)] {
        if (const auto dispatch = weak.lock()) {
            (*dispatch)(action);
        }
    });
    return noErr;
}

} // namespace blankwell
