#include "platform/qt/PortalAppearance.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QEvent>
#include <QGuiApplication>
#include <QMap>
#include <QPalette>
#include <QScopedValueRollback>

#include <algorithm>
#include <array>

namespace blankwell {
namespace {

using Settings = QMap<QString, QVariantMap>;

const auto service = QStringLiteral("org.freedesktop.portal.Desktop");
const auto path = QStringLiteral("/org/freedesktop/portal/desktop");
const auto interface = QStringLiteral("org.freedesktop.portal.Settings");
const auto appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const auto gnomeGroup = QStringLiteral("org.gnome.desktop.interface");

ColorScheme schemeOfPalette() {
    const auto palette = QGuiApplication::palette();
    const bool isDark = palette.color(QPalette::WindowText).lightnessF() >
                        palette.color(QPalette::Window).lightnessF();
    return isDark ? ColorScheme::dark : ColorScheme::light;
}

std::optional<ColorScheme> preferenceOf(const QVariant& value) {
    constexpr unsigned preferDark = 1;
    constexpr unsigned preferLight = 2;
    switch (value.toUInt()) {
    case preferDark:
        return ColorScheme::dark;
    case preferLight:
        return ColorScheme::light;
    default:
        return std::nullopt;
    }
}

/// A component out of range is how the portal says that there is no accent colour.
std::optional<AccentColor> accentOf(const QVariant& value) {
    if (!value.canConvert<QDBusArgument>()) {
        return std::nullopt;
    }
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != QStringLiteral("(ddd)")) {
        return std::nullopt;
    }
    AccentColor color;
    argument.beginStructure();
    argument >> color.red >> color.green >> color.blue;
    argument.endStructure();
    const bool isColor = std::ranges::all_of(std::array{color.red, color.green, color.blue},
                                             [](double part) { return part >= 0 && part <= 1; });
    return isColor ? std::optional(color) : std::nullopt;
}

} // namespace

PortalAppearance::PortalAppearance(const QDBusConnection& bus)
    : guess_(schemeOfPalette()), appearance_{.scheme = guess_, .accent = std::nullopt} {
    qDBusRegisterMetaType<Settings>();
    qApp->installEventFilter(this);
    ask(bus);
}

bool PortalAppearance::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange && watched == qApp && !tells_) {
        follow(schemeOfPalette());
    }
    return false;
}

void PortalAppearance::ask(QDBusConnection bus) {
    bus.connect(service, path, interface, "SettingChanged", this,
                SLOT(settingChanged(QDBusMessage)));
    auto question = QDBusMessage::createMethodCall(service, path, interface, "ReadAll");
    question << QStringList{appearanceGroup, gnomeGroup};
    auto* const answer = new QDBusPendingCallWatcher(
        bus.asyncCall(question, static_cast<int>(patience.count())), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<Settings> reply = *answer;
        if (!reply.isValid()) {
            return; // there is no portal, or none that knows settings
        }
        auto appearance = appearance_;
        for (const auto settings = reply.value(); const auto& group : settings.keys()) {
            for (const auto& [key, value] : settings[group].asKeyValueRange()) {
                take(group, key, value, appearance);
            }
        }
        publish(appearance);
    });
}

void PortalAppearance::settingChanged(const QDBusMessage& change) {
    if (change.signature() != "ssv") {
        return;
    }
    const auto parts = change.arguments();
    auto appearance = appearance_;
    take(parts[0].toString(), parts[1].toString(), parts[2].value<QDBusVariant>().variant(),
         appearance);
    publish(appearance);
}

void PortalAppearance::take(const QString& group, const QString& key, const QVariant& value,
                            DesktopAppearance& appearance) {
    if (group == appearanceGroup && key == "color-scheme") {
        preference_ = preferenceOf(value);
        appearance.scheme = preference_.value_or(guess_);
    } else if (group == appearanceGroup && key == "accent-color") {
        appearance.accent = accentOf(value);
    } else if (group == gnomeGroup && key == "enable-animations") {
        appearance.reducesMotion =
            value.metaType() == QMetaType::fromType<bool>() && !value.toBool();
    }
}

void PortalAppearance::publish(const DesktopAppearance& appearance) {
    if (appearance != appearance_) {
        appearance_ = appearance;
        tellObservers();
    }
}

void PortalAppearance::tellObservers() {
    const QScopedValueRollback telling(tells_, true);
    observers_.notify();
}

void PortalAppearance::follow(ColorScheme schemeOfPalette) {
    guess_ = schemeOfPalette;
    appearance_.scheme = preference_.value_or(guess_);
    tellObservers();
}

} // namespace blankwell
