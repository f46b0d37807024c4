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
    : failures(willChange_, {}),
      service_(service),
      mainQueue_(mainQueue),
      dispatch_(std::make_shared<Dispatch>(std::move(dispatch))),
      logger_(log, "GlobalHotKey") {
    service_.onLoss([this](EventHotKeyID hotKey, HotKeyStatus status) { lose(hotKey, status); });
    service_.onGift([this](EventHotKeyID hotKey, const std::string& key) { regain(hotKey, key); });
}

GlobalHotKeyManager::~GlobalHotKeyManager() {
    releaseAll();
    service_.onLoss([](auto...) {});
    service_.onGift([](const auto&...) {});
    if (eventHandlerRef_) {
        service_.removeHandler(*eventHandlerRef_);
    }
}

void GlobalHotKeyManager::registerShortcuts(
    const QuickCreateShortcut& quickCreate,
    const std::map<std::string, QuickCreateShortcut>& fileTypeShortcuts) {
    wanted_ = {.quickCreate = quickCreate, .fileTypes = fileTypeShortcuts};
    if (suspensions_ == 0) {
        registerWanted();
    }
}

void GlobalHotKeyManager::unregisterAll() {
    wanted_.reset();
    releaseAll();
    publish({});
}

Subscription GlobalHotKeyManager::suspend() {
    ++suspensions_;
    releaseAll();
    // The dispatch is there as long as this object is.
    return Subscription([this, weak = std::weak_ptr(dispatch_)] {
        if (!weak.expired()) {
            resume();
        }
    });
}

void GlobalHotKeyManager::resume() {
    if (--suspensions_ == 0 && wanted_) {
        registerWanted();
    }
}

void GlobalHotKeyManager::registerWanted() {
    releaseAll();
    Attempt attempt;
    if (installHandler()) {
        registerShortcut(wanted_->quickCreate, quickCreateID, {HotKeyAction::QuickCreate{}},
                         attempt);
        auto id = firstFileTypeID;
        for (const auto& [fileTypeID, shortcut] : wanted_->fileTypes) {
            registerShortcut(shortcut, id, {HotKeyAction::CreateFile{fileTypeID}}, attempt);
            ++id;
        }
    }
    publish(std::move(attempt.failures));
}

void GlobalHotKeyManager::releaseAll() {
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
                                           HotKeyAction action, Attempt& attempt) {
    if (!shortcut.isUsable()) {
        return;
    }
    const auto name = shortcut.displayString();
    if (!attempt.taken.insert(shortcut).second) {
        logger_.error("Skipping duplicate {} hot key", name);
        return;
    }
    const auto reference = service_.registerHotKey(shortcut.keyCode, shortcut.carbonModifiers,
                                                   {.signature = signature, .id = id});
    if (!reference) {
        logger_.error("Failed to register {} hot key: {}", name, reference.error());
        attempt.failures.add(action, reference.error());
        return;
    }
    hotKeyRefs_.emplace(id, *reference);
    actionsByID_.emplace(id, std::move(action));
    logger_.notice("Registered {} hot key", name);
}

void GlobalHotKeyManager::publish(HotKeyFailures newFailures) {
    if (newFailures != failures.get()) {
        failures.set(std::move(newFailures));
    }
}

void GlobalHotKeyManager::lose(EventHotKeyID hotKey, HotKeyStatus status) {
    const auto* const action = actionOf(hotKey);
    if (action == nullptr) {
        return;
    }
    logger_.error("Lost hot key {}: {}", hotKey.id, status);
    auto newFailures = failures.get();
    newFailures.add(*action, status);
    publish(std::move(newFailures));
}

void GlobalHotKeyManager::regain(EventHotKeyID hotKey, const std::string& key) {
    const auto* const action = actionOf(hotKey);
    if (action == nullptr) {
        return;
    }
    logger_.notice("The desktop gives hot key {}: {}", hotKey.id, key);
    auto newFailures = failures.get();
    newFailures.remove(*action);
    publish(std::move(newFailures));
}

const HotKeyAction* GlobalHotKeyManager::actionOf(const EventHotKeyID& hotKey) const {
    const auto action = actionsByID_.find(hotKey.id);
    return hotKey.signature == signature && action != actionsByID_.end() ? &action->second
                                                                         : nullptr;
}

HotKeyStatus GlobalHotKeyManager::handle(const HotKeyEvent& event) {
    const auto hotKey = event.hotKeyID();
    const auto* const action = hotKey ? actionOf(*hotKey) : nullptr;
    if (action == nullptr) {
        return noErr;
    }
    mainQueue_.async([action = *action, weak = std::weak_ptr(dispatch_)] {
        if (const auto dispatch = weak.lock()) {
            (*dispatch)(action);
        }
    });
    return noErr;
}

} // namespace blankwell
