#include "widgets/ProgressBar.h"

#include "widgets/Painting.h"
#include "widgets/Theme.h"

#include <QPainter>
#include <QPainterPath>
#include <QTimerEvent>

#include <algorithm>
#include <chrono>

namespace blankwell {
namespace {

using namespace std::chrono_literals;

constexpr int thickness = 6;
constexpr auto frameTime = 16ms;
/// How long the part that moves takes from one end to the other.
constexpr auto roundTime = 1500ms;
constexpr double movingShare = 0.3;

double shareOfRound() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(now % roundTime) / roundTime;
}

} // namespace

ProgressBar::ProgressBar(const Theme& theme, QWidget* parent)
    : QProgressBar(parent), theme_(theme) {
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize ProgressBar::sizeHint() const {
    return {20 * thickness, thickness};
}

QRectF ProgressBar::doneRect() const {
    const auto share = double(value() - minimum()) / (maximum() - minimum());
    const double least = value() > minimum() ? thickness : 0; // a beginning is to be seen
    return {0, 0, std::max(width() * share, least), double(height())};
}

QRectF ProgressBar::movingRect() const {
    if (theme_.motion() == 0ms) {
        return rect();
    }
    const double length = width() * movingShare;
    return {(width() + length) * shareOfRound() - length, 0, length, double(height())};
}

void ProgressBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const double radius = height() / 2.0;
    drawShape(painter, rect(), {.radius = radius, .fill = theme_.color(ColorRole::separator)});
    QPainterPath track;
    track.addRoundedRect(rect(), radius, radius);
    painter.setClipPath(track);
    const bool isStill = !isTimeKnown() && theme_.motion() == 0ms;
    drawShape(painter, mirrored(isTimeKnown() ? doneRect() : movingRect(), *this),
              {.radius = radius, .fill = theme_.color(ColorRole::accent, isStill ? 0.4 : 1)});
    if (!isTimeKnown() && !isStill && !frames_.isActive()) {
        frames_.start(static_cast<int>(frameTime.count()), this);
    }
}

void ProgressBar::timerEvent(QTimerEvent* event) {
    if (event->timerId() != frames_.timerId()) {
        QProgressBar::timerEvent(event);
        return;
    }
    frames_.stop(); // the next picture goes on, if there is one
    update();
}

} // namespace blankwell
