#include "widgets/Colors.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace blankwell {
namespace {

struct SchemeColors {
    QRgb light;
    QRgb dark;
};

SchemeColors colorsOf(ColorRole role) {
    switch (role) {
    case ColorRole::windowBackground:
        return {.light = 0xfff5f5f7, .dark = 0xff1e1f22};
    case ColorRole::controlBackground:
        return {.light = 0xffffffff, .dark = 0xff2a2b2f};
    case ColorRole::separator:
        return {.light = 0xffdcdce1, .dark = 0xff3d3e44};
    case ColorRole::label:
        return {.light = 0xff1c1c1e, .dark = 0xfff2f2f4};
    case ColorRole::secondaryLabel:
        return {.light = 0xff5f6066, .dark = 0xffadaeb6};
    case ColorRole::tertiaryLabel:
        return {.light = 0xff6e6f76, .dark = 0xff92939b};
    case ColorRole::accent:
        return {.light = 0xff2f6feb, .dark = 0xff6ea0ff};
    case ColorRole::textOnAccent:
        return {.light = 0xffffffff, .dark = 0xff0f1013};
    case ColorRole::red:
        return {.light = 0xffc4291c, .dark = 0xffff7a6e};
    case ColorRole::segmentedTrack:
        return {.light = 0xffe6e6ea, .dark = 0xff141518};
    case ColorRole::selectedSegment:
        return {.light = 0xffffffff, .dark = 0xff3d3e44};
    }
    return {};
}

QColor tableColor(ColorRole role, ColorScheme scheme) {
    const auto colors = colorsOf(role);
    return QColor::fromRgb(scheme == ColorScheme::dark ? colors.dark : colors.light);
}

double linear(double component) {
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

QColor mixed(const QColor& one, const QColor& other, double share) {
    const auto mix = [share](double from, double to) { return from + (to - from) * share; };
    return QColor::fromRgbF(static_cast<float>(mix(one.redF(), other.redF())),
                            static_cast<float>(mix(one.greenF(), other.greenF())),
                            static_cast<float>(mix(one.blueF(), other.blueF())));
}

/// `accent`, moved away from the colour of the text on it as far as the text needs.
QColor readableAccent(const QColor& accent, const QColor& text) {
    const QColor farthest = luminance(text) > 0.5 ? Qt::black : Qt::white;
    constexpr int steps = 50;
    auto result = accent;
    for (int step = 1; contrast(result, text) < readableContrast && step <= steps; ++step) {
        // Rounded to what screens show, so that the contrast is that of the pixels.
        result = QColor::fromRgb(mixed(accent, farthest, double(step) / steps).rgb());
    }
    return result;
}

QColor colorOfDesktop(const AccentColor& accent) {
    const auto part = [](double value) { return static_cast<float>(std::clamp(value, 0.0, 1.0)); };
    return QColor::fromRgb(
        QColor::fromRgbF(part(accent.red), part(accent.green), part(accent.blue)).rgb());
}

} // namespace

double contrast(const QColor& one, const QColor& other) {
    auto darker = luminance(one);
    auto lighter = luminance(other);
    if (darker > lighter) {
        std::swap(darker, lighter);
    }
    return (lighter + 0.05) / (darker + 0.05);
}

QColor blended(const QColor& color, const QColor& ground) {
    const QColor opaque = QColor::fromRgb(color.rgb());
    return QColor::fromRgb(mixed(ground, opaque, color.alphaF()).rgb());
}

QColor colorOf(ColorRole role, const DesktopAppearance& appearance) {
    if (role == ColorRole::accent && appearance.accent) {
        return readableAccent(colorOfDesktop(*appearance.accent),
                              tableColor(ColorRole::textOnAccent, appearance.scheme));
    }
    return tableColor(role, appearance.scheme);
}

} // namespace blankwell
