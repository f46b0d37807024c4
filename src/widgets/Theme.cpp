#include "widgets/Theme.h"

#include "platform/Appearance.h"

#include <QApplication>
#include <QPalette>

namespace blankwell {
namespace {

using namespace std::chrono_literals;

constexpr double disabledOpacity = 0.45;

QPalette paletteOf(const Theme& theme) {
    const auto window = theme.color(ColorRole::windowBackground);
    const auto control = theme.color(ColorRole::controlBackground);
    const auto label = theme.color(ColorRole::label);
    const auto accent = theme.color(ColorRole::accent);
    // The bevels of the desktop's style are made from the first two.
    QPalette palette(control, window);
    for (const auto& [role, color] : {
             std::pair{QPalette::Window, window},
             {QPalette::WindowText, label},
             {QPalette::Base, control},
             {QPalette::AlternateBase, window},
             {QPalette::Text, label},
             {QPalette::Button, control},
             {QPalette::ButtonText, label},
             {QPalette::PlaceholderText, theme.color(ColorRole::tertiaryLabel)},
             {QPalette::ToolTipBase, control},
             {QPalette::ToolTipText, label},
             {QPalette::Highlight, accent},
             {QPalette::HighlightedText, theme.color(ColorRole::textOnAccent)},
             {QPalette::Link, accent},
         }) {
        palette.setColor(role, color);
    }
    const auto disabled = blended(theme.color(ColorRole::label, disabledOpacity), window);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, disabled);
    }
    return palette;
}

} // namespace

Theme::Theme(Appearance& appearance)
    : appearance_(appearance), changes_(appearance.observeChanges([this] { apply(); })) {
    apply();
}

QColor Theme::color(ColorRole role) const {
    return colorOf(role, appearance_.current());
}

QColor Theme::color(ColorRole role, double opacity) const {
    auto result = color(role);
    result.setAlphaF(static_cast<float>(opacity));
    return result;
}

bool Theme::isDark() const {
    return appearance_.current().scheme == ColorScheme::dark;
}

std::chrono::milliseconds Theme::motion() const {
    return appearance_.current().reducesMotion ? 0ms : 150ms;
}

void Theme::apply() const {
    QApplication::setPalette(paletteOf(*this));
}

} // namespace blankwell
