#pragma once

#include "base/Observers.h"
#include "platform/Appearance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <chrono>

namespace blankwell {

/// The appearance as the desktop portal's settings tell it.
///
/// The portal is asked once, without waiting for it, and heard from then on. Until it answers, and
/// where there is none, the scheme is that of Qt's own palette at the start, there is no accent,
/// and things may move.
class PortalAppearance : public QObject, public Appearance {
    Q_OBJECT

public:
    /// How long the portal may take to answer, which includes its start.
    static constexpr std::chrono::milliseconds patience = std::chrono::seconds(10);

    /// Made before anything gives the application a palette of its own.
    explicit PortalAppearance(const QDBusConnection& bus);

    [[nodiscard]] DesktopAppearance current() const override { return appearance_; }

    Subscription observeChanges(std::function<void()> observer) override {
        return observers_.add(std::move(observer));
    }

private slots:
    void settingChanged(const QDBusMessage& change);

private:
    void ask(QDBusConnection bus);
    void publish(const DesktopAppearance& appearance);

    ColorScheme guess_;
    DesktopAppearance appearance_;
    Observers<> observers_;
};

} // namespace blankwell
