#include "widgets/Separator.h"

#include "widgets/Theme.h"

#include <QPainter>

namespace blankwell {

Separator::Separator(const Theme& theme, QWidget* parent) : QWidget(parent), theme_(theme) {
    setFixedHeight(1);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Separator::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), theme_.color(ColorRole::separator));
}

} // namespace blankwell
