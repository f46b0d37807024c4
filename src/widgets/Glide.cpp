#include "widgets/Glide.h"

#include "widgets/Theme.h"

#include <QWidget>

namespace blankwell {

Glide::Glide(const Theme& theme, QWidget& widget, double start)
    : theme_(theme), widget_(widget), value_(start) {
    animation_.setEasingCurve(QEasingCurve::OutCubic);
    QObject::connect(&animation_, &QVariantAnimation::valueChanged, &animation_,
                     [this](const QVariant& value) {
                         value_ = value.toDouble();
                         widget_.update();
                     });
}

void Glide::moveTo(double goal) {
    const auto duration = static_cast<int>(theme_.motion().count());
    if (duration == 0 || !widget_.isVisible()) {
        jumpTo(goal);
        return;
    }
    animation_.stop();
    animation_.setDuration(duration);
    animation_.setStartValue(value_);
    animation_.setEndValue(goal);
    animation_.start();
}

void Glide::jumpTo(double goal) {
    animation_.stop();
    value_ = goal;
    widget_.update();
}

} // namespace blankwell
