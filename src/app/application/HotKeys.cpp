#include "app/application/HotKeys.h"

#include "platform/linux/DisplayProtocol.h"
#include "platform/linux/X11HotKeyService.h"

#include <QSocketNotifier>

namespace blankwell {

struct HotKeys::FromXServer {
    FromXServer() {
        QObject::connect(&notifier, &QSocketNotifier::activated,
                         [this] { service.processEvents(); });
    }

    X11HotKeyService service;
    QSocketNotifier notifier{service.descriptor(), QSocketNotifier::Read};
};

HotKeys::HotKeys(const Environment& environment) {
    if (displayProtocol(environment) == DisplayProtocol::x11) {
        fromXServer_ = std::make_unique<FromXServer>();
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
