#include "views/NumberBadge.h"

#include "widgets/AccessibleRole.h"
#include "widgets/Metrics.h"
#include "widgets/Painting.h"
#include "widgets/Theme.h"
#include "widgets/Typography.h"

#include <QPainter>

#include <algorithm>

namespace blankwell {

NumberBadge::NumberBadge(const Theme& theme, int number, QWidget* parent)
    : QWidget(parent), theme_(theme), text_(QString::number(number)) {
    setAccessibleRole(*this, QAccessible::StaticText);
    setAccessibleName(text_);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize NumberBadge::sizeHint() const {
    const int side =
        std::max(5 * metrics::grid, QFontMetrics(fontOf(TextStyle::captionMedium)).height() + 4);
    return {std::max(side, metrics::symbolColumn), side};
}

void NumberBadge::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QRectF disc(0, 0, height(), height());
    disc.moveCenter(QRectF(rect()).center());
    drawShape(painter, disc,
              {.radius = disc.height() / 2, .fill = theme_.color(ColorRole::accent, 0.13)});
    painter.setFont(fontOf(TextStyle::captionMedium));
    painter.setPen(theme_.color(ColorRole::label));
    painter.drawText(disc, Qt::AlignCenter, text_);
}

} // namespace blankwell
