#include "platform/linux/HotKeyHandlers.h"

#include <utility>

namespace blankwell {
namespace {

class PressedHotKey : public HotKeyEvent {
public:
    explicit PressedHotKey(EventHotKeyID id) : id_(id) {}

    std::expected<EventHotKeyID, HotKeyStatus> hotKeyID() const override { return id_; }

private:
    EventHotKeyID id_;
};

} // namespace

HotKeyHandlers::Reference HotKeyHandlers::install(Handler handler) {
    const auto reference = Reference{++lastReference_};
    handlers_.emplace(reference, std::move(handler));
    return reference;
}

void HotKeyHandlers::remove(Reference handler) {
    handlers_.erase(handler);
}

void HotKeyHandlers::call(EventHotKeyID id) {
    const PressedHotKey event(id);
    for (const auto handlers = handlers_; const auto& [reference, handler] : handlers) {
        if (handlers_.contains(reference)) {
            handler(event);
        }
    }
}

} // namespace blankwell
