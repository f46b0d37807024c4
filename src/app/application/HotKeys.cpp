#include "app/application/HotKeys.h"

#include "platform/Log.h"
#include "platform/linux/DisplayProtocol.h"
#include "platform/linux/X11HotKeyService.h"

#include <QSocketNotifier>

namespace blankwell {

struct HotKeys::FromXServer {
    explicit FromXServer(Log& log) : logger(log, "GlobalHotKey") {
        service.onLoss([this](const EventHotKeyID& hotKey, HotKeyStatus status) {
            logger.error("Lost hot key {}: {}", hotKey.id, status);
        });
        QObject::connect(&notifier, &QSocketNotifier::activated,
                         [this] { service.processEvents(); });
    }

    Logger logger;
    X11HotKeyService service;
    QSocketNotifier notifier{service.descriptor(), QSocketNotifier::Read};
};

HotKeys::HotKeys(const Environment& environment, Log& log) {
    if (displayProtocol(environment) == DisplayProtocol::x11) {
        fromXServer_ = std::make_unique<FromXServer>(log);
    }
}

HotKeys::~HotKeys() = default;

HotKeyService& HotKeys::service() {
    if (fromXServer_) {
        return fromXServer_->service;
    }
    return unavailable_;
}

} // namespace blankwell
