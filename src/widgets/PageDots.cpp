#include "widgets/PageDots.h"

#include "widgets/AccessibleRole.h"
#include "widgets/Painting.h"
#include "widgets/Theme.h"

#include <QPainter>

namespace blankwell {
namespace {

constexpr int dotSize = 6;
constexpr int dotPitch = 12;

} // namespace

PageDots::PageDots(const Theme& theme, int count, QWidget* parent)
    : QWidget(parent), theme_(theme), count_(count) {
    setAccessibleRole(*this, QAccessible::StaticText);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setPage(0);
}

void PageDots::setPage(int index) {
    page_ = index;
    setAccessibleName(QString("Page %1 of %2").arg(index + 1).arg(count_));
    update();
}

QSize PageDots::sizeHint() const {
    return {(count_ - 1) * dotPitch + dotSize, dotSize};
}

void PageDots::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    for (int i = 0; i < count_; ++i) {
        const auto role = i == page_ ? ColorRole::accent : ColorRole::separator;
        drawShape(painter, mirrored(QRectF(i * dotPitch, 0, dotSize, dotSize), *this),
                  {.radius = dotSize / 2.0, .fill = theme_.color(role)});
    }
}

} // namespace blankwell
