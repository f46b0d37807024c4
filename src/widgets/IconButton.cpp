#include "widgets/IconButton.h"

#include "widgets/FocusVisibility.h"
#include "widgets/Keys.h"
#include "widgets/Metrics.h"
#include "widgets/Painting.h"
#include "widgets/QtStrings.h"
#include "widgets/Symbols.h"
#include "widgets/Theme.h"

#include <QPainter>

namespace blankwell {

IconButton::IconButton(const Theme& theme, const Look& look, QWidget* parent)
    : QPushButton(parent),
      theme_(theme),
      symbol_(look.symbol),
      symbolSize_(look.symbolSize),
      color_(look.color) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setAutoDefault(false);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setToolTip(qString(look.help));
    setAccessibleName(qString(look.help));
}

QSize IconButton::sizeHint() const {
    return {symbolSize_ + 2 * metrics::grid, symbolSize_ + 2 * metrics::grid};
}

void IconButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setOpacity(opacityOf(*this));
    const bool isHovered = isEnabled() && underMouse();
    constexpr double radius = 6;
    if (isDown() || isHovered) {
        drawShape(
            painter, rect(),
            {.radius = radius, .fill = theme_.color(ColorRole::label, isDown() ? 0.14 : 0.07)});
    }
    if (showsFocus(*this)) {
        drawFocusOutline(painter, rect(), radius, theme_.color(ColorRole::accent));
    }
    const int margin = metrics::grid;
    drawSymbol(painter, symbol_, rect().adjusted(margin, margin, -margin, -margin),
               theme_.color(isHovered ? ColorRole::label : color_));
}

void IconButton::keyPressEvent(QKeyEvent* event) {
    if (isReturn(*event)) {
        click();
    } else {
        QPushButton::keyPressEvent(event);
    }
}

} // namespace blankwell
