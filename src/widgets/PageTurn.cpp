#include "widgets/PageTurn.h"

#include "widgets/Metrics.h"
#include "widgets/Theme.h"

#include <QPainter>

namespace blankwell {
namespace {

/// How far the pages move: enough to tell the direction.
constexpr double distance = 12 * metrics::grid;

} // namespace

PageTurn::PageTurn(const Theme& theme, QWidget& page)
    : QWidget(page.parentWidget()), theme_(theme), page_(page) {
    hide();
    setAttribute(Qt::WA_OpaquePaintEvent);
    progress_.setStartValue(0.0);
    progress_.setEndValue(1.0);
    progress_.setEasingCurve(QEasingCurve::OutCubic);
    connect(&progress_, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    connect(&progress_, &QVariantAnimation::finished, this, &QWidget::hide);
}

void PageTurn::turn(Direction direction, const std::function<void()>& change) {
    const auto duration = static_cast<int>(theme_.motion().count());
    if (duration == 0 || !page_.isVisible()) {
        change();
        return;
    }
    progress_.stop();
    direction_ = direction;
    before_ = page_.grab();
    change();
    after_ = page_.grab();
    setGeometry(page_.geometry());
    raise();
    show();
    progress_.setDuration(duration);
    progress_.start();
}

bool PageTurn::isTurning() const {
    return progress_.state() == QAbstractAnimation::Running;
}

void PageTurn::paintEvent(QPaintEvent* /*event*/) {
    const double progress = progress_.currentValue().toDouble();
    const bool isLeftwards = (direction_ == Direction::forward) != isRightToLeft();
    const double way = isLeftwards ? distance : -distance;
    QPainter painter(this);
    painter.fillRect(rect(), theme_.color(ColorRole::windowBackground));
    painter.setOpacity(1 - progress);
    painter.drawPixmap(QPointF(-way * progress, 0), before_);
    painter.setOpacity(progress);
    painter.drawPixmap(QPointF(way * (1 - progress), 0), after_);
}

} // namespace blankwell
