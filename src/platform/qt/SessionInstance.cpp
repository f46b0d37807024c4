#include "platform/qt/SessionInstance.h"

#include "platform/qt/QtText.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include <algorithm>
#include <iterator>

namespace blankwell {
namespace {

constexpr int answerMilliseconds = 5000;

/// The path that the Desktop Entry Specification derives from a name.
QString objectPath(const QString& name) {
    return '/' + QString(name).replace('.', '/').replace('-', '_');
}

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
      path_(objectPath(name_)),
      adaptor_(new ApplicationAdaptor(&object_)), // which the object owns
      claim_(claimName(name_, path_, object_)) {}

SessionInstance::~SessionInstance() {
    auto bus = QDBusConnection::sessionBus();
    if (claim_ == Claim::first) {
        bus.unregisterService(name_);
    }
    bus.unregisterObject(path_);
}

std::expected<void, std::string> SessionInstance::activate() const {
    return ask("Activate", {});
}

std::expected<void, std::string> SessionInstance::open(const std::vector<std::string>& urls) const {
    QStringList uris;
    std::ranges::transform(urls, std::back_inserter(uris), qtText);
    return ask("Open", {QVariant(uris)});
}

std::expected<void, std::string> SessionInstance::activateAction(std::string_view action) const {
    return ask("ActivateAction", {qtText(action), QVariant(QVariantList())});
}

std::expected<void, std::string> SessionInstance::ask(const QString& method,
                                                      QVariantList arguments) const {
    auto message =
        QDBusMessage::createMethodCall(name_, path_, "org.freedesktop.Application", method);
    arguments << QVariantMap(); // about the platform: nothing to tell
    message.setArguments(arguments);
    const auto answer =
        QDBusConnection::sessionBus().call(message, QDBus::Block, answerMilliseconds);
    if (answer.type() == QDBusMessage::ErrorMessage) {
        return std::unexpected("The running application does not answer: " +
                               utf8(answer.errorMessage()));
    }
    return {};
}

} // namespace blankwell
