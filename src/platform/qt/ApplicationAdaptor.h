#pragma once

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <QVariantMap>

namespace blankwell {

class ApplicationRequests;

/// The interface `org.freedesktop.Application` of the Desktop Entry Specification, section "D-Bus
/// Activation", on the object that owns this one.
class ApplicationAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(QObject* owner) : QDBusAbstractAdaptor(owner) {}

    /// Hands what is asked on to `requests`; nullptr drops it.
    void setRequests(ApplicationRequests* requests) { requests_ = requests; }

public Q_SLOTS:
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    void ActivateAction(const QString& name, const QVariantList& parameters,
                        const QVariantMap& platformData);

private:
    ApplicationRequests* requests_ = nullptr;
};

} // namespace blankwell
