#pragma once

#include "base/Observers.h"
#include "platform/Appearance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <chrono>
#include <optional>

namespace blankwell {

/// The appearance as the desktop portal's settings tell it.
///
/// The portal is asked once, without waiting for it, and heard from then on. Until it answers, and
/// where there is none or none that has an opinion, the scheme is that of the palette that Qt or
/// the desktop's plugin for it gives the application, now and later; there is no accent, and things
/// may move.
///
/// Observers are told of each palette that comes from there, also where its scheme is the one that
/// counts already: a palette that an observer gave the application is gone then.
class PortalAppearance : public QObject, public Appearance {
    Q_OBJECT

public:
    /// How long the portal may take to answer, which includes its start.
    static constexpr std::chrono::milliseconds patience = std::chrono::seconds(10);

    /// Made before anything gives the application a palette of its own, whose scheme must be the
    /// one that counts.
    explicit PortalAppearance(const QDBusConnection& bus);

    [[nodiscard]] DesktopAppearance current() const override { return appearance_; }

    Subscription observeChanges(std::function<void()> observer) override {
        return observers_.add(std::move(observer));
    }

    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void settingChanged(const QDBusMessage& change);

private:
    void ask(QDBusConnection bus);
    void take(const QString& group, const QString& key, const QVariant& value,
              DesktopAppearance& appearance);
    void publish(const DesktopAppearance& appearance);
    void tellObservers();
    void follow(ColorScheme schemeOfPalette);

    /// That of the desktop's palette, which counts where the portal has no opinion.
    ColorScheme guess_;
    std::optional<ColorScheme> preference_;
    DesktopAppearance appearance_;
    /// Observers are told, and a palette that comes now is theirs.
    bool tells_ = false;
    Observers<> observers_;
};

} // namespace blankwell
