#include "platform/qt/PortalAppearance.h"

#include "contract/AppearanceContract.h"
#include "support/FakeAppearance.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QMap>
#include <QPalette>
#include <QProcess>
#include <QTest>

#include <memory>
#include <optional>
#include <stdexcept>

namespace blankwell {

/// The form that the portal gives a colour.
struct WireColor {
    double red = -1;
    double green = -1;
    double blue = -1;
};

QDBusArgument& operator<<(QDBusArgument& argument, const WireColor& color) {
    argument.beginStructure();
    argument << color.red << color.green << color.blue;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, WireColor& color) {
    argument.beginStructure();
    argument >> color.red >> color.green >> color.blue;
    argument.endStructure();
    return argument;
}

} // namespace blankwell

Q_DECLARE_METATYPE(blankwell::WireColor)

namespace blankwell {
namespace {

using Settings = QMap<QString, QVariantMap>;

constexpr auto appearanceGroup = "org.freedesktop.appearance";
constexpr auto gnomeGroup = "org.gnome.desktop.interface";
constexpr auto portalPath = "/org/freedesktop/portal/desktop";
constexpr auto portalInterface = "org.freedesktop.portal.Settings";

/// A bus of the test's own, which knows no program to start.
class Bus {
public:
    Bus() {
        const auto configuration = folder_.url().appending("bus.conf").path();
        folder_.addFile(
            "bus.conf",
            "<busconfig><type>session</type><listen>unix:path=" +
                folder_.url().appending("bus").path() +
                "</listen><auth>EXTERNAL</auth><policy context='default'>"
                "<allow send_destination='*'/><allow receive_sender='*'/><allow own='*'/>"
                "</policy></busconfig>");
        daemon_.start("dbus-daemon", {"--nofork", "--print-address",
                                      "--config-file=" + QString::fromStdString(configuration)});
        if (!daemon_.waitForStarted() || !daemon_.waitForReadyRead()) {
            throw std::runtime_error("no private bus");
        }
        address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
    }

    ~Bus() {
        for (const auto& name : names_) {
            QDBusConnection::disconnectFromBus(name);
        }
        daemon_.kill();
        daemon_.waitForFinished();
    }

    QDBusConnection connect(const QString& name) {
        names_.push_back(name);
        return QDBusConnection::connectToBus(address_, name);
    }

private:
    TemporaryFolder folder_;
    QProcess daemon_;
    QString address_;
    std::vector<QString> names_;
};

/// A desktop portal that knows settings.
class Portal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit Portal(const QDBusConnection& bus) : bus_(bus) {
        qDBusRegisterMetaType<Settings>();
        qDBusRegisterMetaType<WireColor>();
        bus_.registerObject(portalPath, this, QDBusConnection::ExportAllSlots);
        if (!bus_.registerService("org.freedesktop.portal.Desktop")) {
            throw std::runtime_error("the portal has no name");
        }
    }

    void change(const QString& group, const QString& key, const QVariant& value) {
        settings_[group][key] = value;
        auto signal = QDBusMessage::createSignal(portalPath, portalInterface, "SettingChanged");
        signal << group << key << QVariant::fromValue(QDBusVariant(value));
        bus_.send(signal);
    }

    void set(const DesktopAppearance& appearance) {
        change(gnomeGroup, "enable-animations", !appearance.reducesMotion);
        const auto accent = appearance.accent.value_or(AccentColor{-1, -1, -1});
        change(appearanceGroup, "accent-color",
               QVariant::fromValue(WireColor{accent.red, accent.green, accent.blue}));
        change(appearanceGroup, "color-scheme", appearance.scheme == ColorScheme::dark ? 1U : 2U);
    }

    [[nodiscard]] int questions() const { return questions_; }

public slots:

    Settings ReadAll(const QStringList& groups) {
        ++questions_;
        Settings answer;
        for (const auto& group : groups) {
            answer[group] = settings_[group];
        }
        return answer;
    }

private:
    QDBusConnection bus_;
    Settings settings_;
    int questions_ = 0;
};

/// Works until what was sent so far has arrived.
void settle() {
    QTest::qWait(30);
}

struct PortalDesktop {
    PortalDesktop() {
        EXPECT_TRUE(QTest::qWaitFor([this] { return portal.questions() == 1; }));
    }

    void set(const DesktopAppearance& appearance) {
        portal.set(appearance);
        EXPECT_TRUE(QTest::qWaitFor([&] { return adapter.current() == appearance; }));
        settle();
    }

    Appearance& appearance() { return adapter; }

    Bus bus;
    Portal portal{bus.connect("portal")};
    PortalAppearance adapter{bus.connect("application")};
};

struct FakeDesktop {
    void set(const DesktopAppearance& appearance) { fake.set(appearance); }

    Appearance& appearance() { return fake; }

    FakeAppearance fake;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, AppearanceContract, FakeDesktop);
INSTANTIATE_TYPED_TEST_SUITE_P(Portal, AppearanceContract, PortalDesktop);

/// The palette is the application's own again at the end.
struct PortalAppearanceTest : testing::Test {
    ~PortalAppearanceTest() override { QGuiApplication::setPalette(palette); }

    QPalette palette = QGuiApplication::palette();
    Bus bus;
};

TEST_F(PortalAppearanceTest, WhatThePortalSaysAlreadyIsToldSoonAfterTheStart) {
    Portal portal(bus.connect("portal"));
    const DesktopAppearance dark{.scheme = ColorScheme::dark,
                                 .accent = AccentColor{.red = 0.25, .green = 0.5, .blue = 1},
                                 .reducesMotion = true};
    portal.set(dark);
    const PortalAppearance appearance(bus.connect("application"));
    EXPECT_EQ(appearance.current(), DesktopAppearance{});
    EXPECT_TRUE(QTest::qWaitFor([&] { return appearance.current() == dark; }));
}

TEST_F(PortalAppearanceTest, WithoutAPortalTheSchemeIsThatOfThePalette) {
    QGuiApplication::setPalette(QPalette(Qt::black));
    const PortalAppearance appearance(bus.connect("application"));
    settle();
    EXPECT_EQ(appearance.current().scheme, ColorScheme::dark);
}

TEST_F(PortalAppearanceTest, APortalWithoutPreferenceLeavesTheSchemeOfThePalette) {
    QGuiApplication::setPalette(QPalette(Qt::black));
    Portal portal(bus.connect("portal"));
    const PortalAppearance appearance(bus.connect("application"));
    portal.change(appearanceGroup, "color-scheme", 2U);
    EXPECT_TRUE(QTest::qWaitFor([&] { return appearance.current().scheme == ColorScheme::light; }));
    portal.change(appearanceGroup, "color-scheme", 0U);
    EXPECT_TRUE(QTest::qWaitFor([&] { return appearance.current().scheme == ColorScheme::dark; }));
}

TEST_F(PortalAppearanceTest, WithoutAPortalAPaletteThatComesLaterCounts) {
    PortalAppearance appearance(bus.connect("application"));
    std::vector<ColorScheme> seen;
    const auto observation =
        appearance.observeChanges([&] { seen.push_back(appearance.current().scheme); });
    QGuiApplication::setPalette(QPalette(Qt::black));
    QGuiApplication::setPalette(QPalette(Qt::white));
    EXPECT_EQ(seen, (std::vector{ColorScheme::dark, ColorScheme::light}));
}

TEST_F(PortalAppearanceTest, ThePaletteOfAnObserverIsNotTheDesktops) {
    PortalAppearance appearance(bus.connect("application"));
    int told = 0;
    const auto observation = appearance.observeChanges([&] {
        ++told;
        QGuiApplication::setPalette(QPalette(Qt::white));
    });
    QGuiApplication::setPalette(QPalette(Qt::black));
    EXPECT_EQ(appearance.current().scheme, ColorScheme::dark);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(QGuiApplication::palette().color(QPalette::Window),
              QPalette(Qt::white).color(QPalette::Window));
}

TEST_F(PortalAppearanceTest, WhatThePortalPrefersCountsMoreThanAPalette) {
    Portal portal(bus.connect("portal"));
    PortalAppearance appearance(bus.connect("application"));
    portal.change(appearanceGroup, "color-scheme", 1U);
    ASSERT_TRUE(QTest::qWaitFor([&] { return appearance.current().scheme == ColorScheme::dark; }));
    int told = 0;
    const auto observation = appearance.observeChanges([&] { ++told; });
    QGuiApplication::setPalette(QPalette(Qt::white));
    EXPECT_EQ(appearance.current().scheme, ColorScheme::dark);
    EXPECT_EQ(told, 1) << "what the observer gave the application is gone";
    portal.change(appearanceGroup, "color-scheme", 0U);
    EXPECT_TRUE(QTest::qWaitFor([&] { return appearance.current().scheme == ColorScheme::light; }));
}

TEST_F(PortalAppearanceTest, ValuesOfOtherKindsAndOtherKeysChangeNothing) {
    Portal portal(bus.connect("portal"));
    const PortalAppearance appearance(bus.connect("application"));
    portal.change(appearanceGroup, "accent-color", "orange");
    portal.change(appearanceGroup, "accent-color", QVariant::fromValue(WireColor{0.5, 7, 0}));
    portal.change(gnomeGroup, "enable-animations", "no");
    portal.change(gnomeGroup, "color-scheme", 1U);
    portal.change(appearanceGroup, "contrast", 1U);
    settle();
    EXPECT_EQ(appearance.current(), DesktopAppearance{});
}

} // namespace
} // namespace blankwell

#include "PortalAppearanceTest.moc"
