#include "widgets/Card.h"

#include "widgets/Metrics.h"
#include "widgets/Painting.h"
#include "widgets/Theme.h"

#include <QPainter>
#include <QVBoxLayout>

namespace blankwell {

Card::Card(const Theme& theme, QWidget* parent)
    : QWidget(parent), theme_(theme), content_(new QVBoxLayout(this)) {
    using metrics::cardPadding;
    content_->setContentsMargins(cardPadding, cardPadding, cardPadding, cardPadding);
    content_->setSpacing(2 * metrics::grid);
}

void Card::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawShape(painter, rect(),
              {.radius = metrics::cardRadius,
               .fill = theme_.color(ColorRole::controlBackground),
               .outline = theme_.color(ColorRole::separator)});
}

} // namespace blankwell
