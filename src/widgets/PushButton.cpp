#include "widgets/PushButton.h"

#include "widgets/FocusVisibility.h"
#include "widgets/Keys.h"
#include "widgets/Metrics.h"
#include "widgets/Painting.h"
#include "widgets/QtStrings.h"
#include "widgets/Theme.h"
#include "widgets/Typography.h"

#include <QPainter>

#include <algorithm>

namespace blankwell {
namespace {

/// The title without what marks a letter as a key to press.
QString titleOf(const QPushButton& button) {
    return button.text().replace("&&", "&");
}

/// `pressed` while the button is held down, `hovered` while the pointer is over it, else 0.
double emphasis(const QPushButton& button, double hovered, double pressed) {
    if (button.isDown()) {
        return pressed;
    }
    return button.isEnabled() && button.underMouse() ? hovered : 0;
}

} // namespace

PushButton::PushButton(const Theme& theme, std::string_view title, Kind kind, QWidget* parent)
    : QPushButton(qString(title).replace('&', "&&"), parent), theme_(theme), kind_(kind) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setAutoDefault(false);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize PushButton::sizeHint() const {
    const QFontMetrics metrics(fontOf(TextStyle::calloutMedium));
    return {metrics.horizontalAdvance(titleOf(*this)) + 2 * metrics::buttonPadding,
            std::max(metrics::buttonHeight, metrics.height() + 2 * metrics::grid)};
}

QColor PushButton::fill() const {
    if (kind_ == Kind::plain) {
        const auto ground = theme_.color(ColorRole::controlBackground);
        return blended(theme_.color(ColorRole::label, emphasis(*this, 0.05, 0.12)), ground);
    }
    // Away from the text, so that it stays readable.
    const auto accent = theme_.color(ColorRole::accent);
    auto away = theme_.isDark() ? QColor(Qt::white) : QColor(Qt::black);
    away.setAlphaF(static_cast<float>(emphasis(*this, 0.1, 0.2)));
    return blended(away, accent);
}

void PushButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setOpacity(opacityOf(*this));
    const bool isAccent = kind_ == Kind::accent;
    const QRectF bounds(rect());
    drawShape(painter, bounds,
              {.radius = metrics::buttonRadius,
               .fill = fill(),
               .outline = isAccent ? QColor(Qt::transparent) : theme_.color(ColorRole::separator)});
    const auto text = theme_.color(isAccent ? ColorRole::textOnAccent : ColorRole::label);
    if (showsFocus(*this)) {
        const double inset = isAccent ? 2 : 0;
        drawFocusOutline(painter, bounds.adjusted(inset, inset, -inset, -inset),
                         metrics::buttonRadius - inset,
                         isAccent ? text : theme_.color(ColorRole::accent));
    }
    painter.setFont(fontOf(TextStyle::calloutMedium));
    painter.setPen(text);
    drawLine(painter, rect(), Qt::AlignHCenter, titleOf(*this), *this);
}

void PushButton::keyPressEvent(QKeyEvent* event) {
    if (isReturn(*event)) {
        click();
    } else {
        QPushButton::keyPressEvent(event);
    }
}

} // namespace blankwell
