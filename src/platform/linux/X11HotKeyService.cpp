#include "platform/linux/X11HotKeyService.h"

#include "platform/linux/HotKeyStatuses.h"

#include <algorithm>
#include <optional>
#include <variant>
#include <vector>

#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace blankwell {

X11HotKeyService::X11HotKeyService(const std::string& display)
    : wakeUps_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      readiness_(::epoll_create1(EPOLL_CLOEXEC)),
      keys_(X11GlobalKeys::connect(display)) {
    // Without what tells of presses there are none.
    if (keys_ && !(watch(wakeUps_.get()) && watch(keys_->descriptor()))) {
        keys_.reset();
    }
    wakeUp();
}

std::expected<HotKeyService::HandlerReference, HotKeyStatus>
X11HotKeyService::installHandler(Handler handler) {
    return handlers_.install(std::move(handler));
}

void X11HotKeyService::removeHandler(HandlerReference handler) {
    handlers_.remove(handler);
}

std::expected<HotKeyService::HotKeyReference, HotKeyStatus>
X11HotKeyService::registerHotKey(std::uint32_t keyCode, std::uint32_t carbonModifiers,
                                 EventHotKeyID id) {
    const KeyCombination combination{.keyCode = keyCode, .carbonModifiers = carbonModifiers};
    if (find(combination) != hotKeys_.end()) {
        return std::unexpected(eventHotKeyExistsErr);
    }
    if (const auto status = take(combination); status != noErr) {
        return std::unexpected(status);
    }
    const auto reference = HotKeyReference{++lastReference_};
    hotKeys_.emplace(reference, HotKey{.combination = combination, .id = id});
    return reference;
}

HotKeyStatus X11HotKeyService::unregisterHotKey(HotKeyReference hotKey) {
    const auto found = hotKeys_.find(hotKey);
    if (found == hotKeys_.end()) {
        return eventHotKeyInvalidErr;
    }
    if (keys_) {
        keys_->release(found->second.combination);
    }
    hotKeys_.erase(found);
    return noErr;
}

void X11HotKeyService::processEvents() {
    forgetWakeUps();
    // While the map is read, further events come in.
    while (handleEvents() == Then::mapChanged) {
        handleMapChange();
    }
    if (keys_ && !keys_->isConnected()) {
        loseAll();
    }
}

X11HotKeyService::Then X11HotKeyService::handleEvents() {
    auto then = Then::done;
    while (const auto event = keys_ ? keys_->nextEvent() : std::nullopt) {
        if (const auto* const combination = std::get_if<KeyCombination>(&*event)) {
            handlePress(*combination);
        } else {
            then = Then::mapChanged;
        }
    }
    return then;
}

bool X11HotKeyService::watch(int descriptor) const {
    epoll_event readable{.events = EPOLLIN, .data = {.fd = descriptor}};
    return ::epoll_ctl(readiness_.get(), EPOLL_CTL_ADD, descriptor, &readable) == 0;
}

void X11HotKeyService::wakeUp() const {
    ::eventfd_write(wakeUps_.get(), 1);
}

void X11HotKeyService::forgetWakeUps() const {
    eventfd_t count = 0;
    ::eventfd_read(wakeUps_.get(), &count);
}

X11HotKeyService::HotKeys::const_iterator
X11HotKeyService::find(const KeyCombination& combination) const {
    return std::ranges::find_if(
        hotKeys_, [&](const auto& entry) { return entry.second.combination == combination; });
}

HotKeyStatus X11HotKeyService::take(const KeyCombination& combination) {
    if (!keys_) {
        return hotKeyDisplayErr;
    }
    const auto status = keys_->take(combination);
    // Events can have come in with the answer, and the descriptor would not tell of them.
    wakeUp();
    return status;
}

void X11HotKeyService::handlePress(const KeyCombination& combination) {
    const auto hotKey = find(combination);
    if (hotKey == hotKeys_.end()) {
        return;
    }
    handlers_.call(hotKey->second.id);
}

void X11HotKeyService::handleMapChange() {
    if (keys_ && keys_->readMap()) {
        keys_->releaseAll();
        takeAll();
    }
}

void X11HotKeyService::takeAll() {
    std::vector<std::pair<EventHotKeyID, HotKeyStatus>> lost;
    std::erase_if(hotKeys_, [&](const auto& entry) {
        const auto status = take(entry.second.combination);
        if (status != noErr) {
            lost.emplace_back(entry.second.id, status);
        }
        return status != noErr;
    });
    for (const auto& [id, status] : lost) {
        lossHandler_(id, status);
    }
}

void X11HotKeyService::loseAll() {
    keys_.reset();
    // Nothing can be taken any more.
    takeAll();
}

} // namespace blankwell
