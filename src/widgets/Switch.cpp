#include "widgets/Switch.h"

#include "widgets/FocusVisibility.h"
#include "widgets/Keys.h"
#include "widgets/Metrics.h"
#include "widgets/Painting.h"
#include "widgets/QtStrings.h"
#include "widgets/Theme.h"

#include <QPainter>

namespace blankwell {
namespace {

constexpr double knobInset = 2;

QColor trackColor(const Theme& theme, double on) {
    return blended(theme.color(ColorRole::accent, on), theme.color(ColorRole::separator));
}

} // namespace

Switch::Switch(const Theme& theme, std::string_view name, QWidget* parent)
    : QCheckBox(parent), theme_(theme), knob_(theme, *this, 0) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(qString(name));
    connect(this, &QCheckBox::toggled, this, [this](bool isOn) { knob_.moveTo(isOn ? 1 : 0); });
}

QSize Switch::sizeHint() const {
    return {metrics::switchWidth + 2 * ringMargin, metrics::switchHeight + 2 * ringMargin};
}

bool Switch::hitButton(const QPoint& place) const {
    return rect().contains(place);
}

void Switch::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setOpacity(opacityOf(*this));
    QRectF track(0, 0, metrics::switchWidth, metrics::switchHeight);
    track.moveCenter(QRectF(rect()).center());
    drawShape(painter, track,
              {.radius = track.height() / 2, .fill = trackColor(theme_, knob_.value())});
    if (isEnabled() && (underMouse() || isDown())) {
        drawShape(painter, track,
                  {.radius = track.height() / 2,
                   .fill = theme_.color(ColorRole::label, isDown() ? 0.16 : 0.08)});
    }
    const auto side = track.height() - 2 * knobInset;
    const auto way = track.width() - track.height();
    const QRectF knob(track.left() + knobInset + way * knob_.value(), track.top() + knobInset, side,
                      side);
    drawShape(painter, mirrored(knob, *this),
              {.radius = side / 2, .fill = Qt::white, .outline = QColor(0, 0, 0, 30)});
    if (showsFocus(*this)) {
        constexpr double margin = ringMargin;
        drawFocusOutline(painter, track.adjusted(-margin, -margin, margin, margin),
                         track.height() / 2 + margin, theme_.color(ColorRole::accent));
    }
}

void Switch::keyPressEvent(QKeyEvent* event) {
    if (isReturn(*event)) {
        click();
    } else {
        QCheckBox::keyPressEvent(event);
    }
}

} // namespace blankwell
