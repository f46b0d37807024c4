#include "views/DropIndicator.h"

#include "widgets/Metrics.h"
#include "widgets/Painting.h"
#include "widgets/Theme.h"

#include <QPainter>

#include <algorithm>

namespace blankwell {
namespace {

constexpr int side = 2 * metrics::grid;

} // namespace

DropIndicator::DropIndicator(const Theme& theme, QWidget& list) : QWidget(&list), theme_(theme) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void DropIndicator::showAt(int y) {
    const auto& list = *parentWidget();
    setGeometry(0, std::clamp(y - side / 2, 0, list.height() - side), list.width(), side);
    raise();
    show();
}

void DropIndicator::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const auto color = theme_.color(ColorRole::accent);
    const auto knob = mirrored(QRectF(0, 0, side, side), *this);
    drawShape(painter, QRectF(0, side / 2.0 - 1, width(), 2), {.radius = 1, .fill = color});
    drawShape(painter, knob.adjusted(1, 1, -1, -1), {.radius = side / 2.0, .fill = color});
}

} // namespace blankwell
