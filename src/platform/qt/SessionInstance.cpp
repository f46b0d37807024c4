#include "platform/qt/SessionInstance.h"

#include "platform/ObjectPath.h"
#include "platform/qt/QtText.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>

namespace blankwell {
namespace {

SessionInstance::Claim claimName(const QString& name, const QString& path, QObject& object) {
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return SessionInstance::Claim::noBus;
    }
    // First the object, so that it is there for whoever sees the name.
    bus.registerObject(path, &object);
    const auto reply =
        bus.interface()->registerService(name, QDBusConnectionInterface::DontQueueService,
                                         QDBusConnectionInterface::DontAllowReplacement);
    if (!reply.isValid()) {
        return SessionInstance::Claim::noBus;
    }
    return reply.value() == QDBusConnectionInterface::ServiceRegistered
               ? SessionInstance::Claim::first
               : SessionInstance::Claim::taken;
}

} // namespace

SessionInstance::SessionInstance(const std::string& name)
    : name_(qtText(name)),
      path_(qtText(objectPath(name))),
      adaptor_(new ApplicationAdaptor(&object_)), // which the object owns
      claim_(claimName(name_, path_, object_)) {}

SessionInstance::~SessionInstance() {
    giveUpName();
    QDBusConnection::sessionBus().unregisterObject(path_);
}

void SessionInstance::retire() {
    giveUpName();
    QCoreApplication::sendPostedEvents(&object_);
}

void SessionInstance::giveUpName() {
    if (claim_ == Claim::first) {
        // The bus answers after all that it has delivered to the name: that has come in then.
        QDBusConnection::sessionBus().interface()->unregisterService(name_);
        claim_ = Claim::taken;
    }
}

} // namespace blankwell
