#include "widgets/Typography.h"

#include <QApplication>
#include <QFontDatabase>
#include <QScreen>

#include <algorithm>

namespace blankwell {
namespace {

struct Scale {
    double size;
    QFont::Weight weight;
};

Scale scaleOf(TextStyle style) {
    switch (style) {
    case TextStyle::title:
        return {.size = 1.7, .weight = QFont::DemiBold};
    case TextStyle::title3:
        return {.size = 1.15, .weight = QFont::DemiBold};
    case TextStyle::headline:
        return {.size = 1, .weight = QFont::DemiBold};
    case TextStyle::body:
        return {.size = 1, .weight = QFont::Normal};
    case TextStyle::callout:
        return {.size = 0.92, .weight = QFont::Normal};
    case TextStyle::calloutMedium:
        return {.size = 0.92, .weight = QFont::Medium};
    case TextStyle::sectionTitle:
        return {.size = 0.92, .weight = QFont::DemiBold};
    case TextStyle::caption:
        return {.size = 0.85, .weight = QFont::Normal};
    case TextStyle::captionMedium:
        return {.size = 0.85, .weight = QFont::Medium};
    case TextStyle::smallCaption:
        return {.size = 0.81, .weight = QFont::Normal};
    case TextStyle::monospaced:
        return {.size = 1, .weight = QFont::Medium};
    }
    return {};
}

double pixelsPerPoint() {
    const auto* const screen = QGuiApplication::primaryScreen();
    return (screen == nullptr ? 96.0 : screen->logicalDotsPerInchY()) / 72.0;
}

double pointSizeOf(const QFont& font) {
    return font.pixelSize() > 0 ? font.pixelSize() / pixelsPerPoint() : font.pointSizeF();
}

} // namespace

QFont fontOf(TextStyle style) {
    const auto desktop = QApplication::font();
    const auto scale = scaleOf(style);
    auto font = style == TextStyle::monospaced ? QFontDatabase::systemFont(QFontDatabase::FixedFont)
                                               : desktop;
    // Points, unlike pixels, can be fractions.
    font.setPointSizeF(
        std::max(pointSizeOf(desktop) * scale.size, smallestTextSize / pixelsPerPoint()));
    font.setWeight(scale.weight);
    return font;
}

} // namespace blankwell
