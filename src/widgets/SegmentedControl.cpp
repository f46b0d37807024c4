#include "widgets/SegmentedControl.h"

#include "widgets/Metrics.h"
#include "widgets/Painting.h"
#include "widgets/QtStrings.h"
#include "widgets/Segment.h"
#include "widgets/Theme.h"

#include <QAccessibleWidget>
#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>

#include <algorithm>

namespace blankwell {
namespace {

QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
    auto* const control = qobject_cast<SegmentedControl*>(object);
    return control == nullptr ? nullptr : new QAccessibleWidget(control, QAccessible::Grouping);
}

} // namespace

SegmentedControl::SegmentedControl(const Theme& theme, std::string_view name,
                                   std::span<const Title> titles, QWidget* parent)
    : QWidget(parent), theme_(theme), left_(theme, *this, 0), width_(theme, *this, 0) {
    QAccessible::installFactory(makeAccessible);
    setAccessibleName(qString(name));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(0);
    for (const auto& title : titles) {
        auto* const segment = new Segment(theme, title.text, title.symbol, this);
        row->addWidget(segment);
        const int index = static_cast<int>(segments_.size());
        connect(segment, &QRadioButton::toggled, this, [this, index](bool isSelected) {
            if (isSelected) {
                choose(index);
            }
        });
        segments_.push_back(segment);
    }
    select(0);
}

int SegmentedControl::selected() const {
    const auto checked = std::ranges::find_if(segments_, &Segment::isChecked);
    return static_cast<int>(checked - segments_.begin());
}

void SegmentedControl::select(int index) {
    const QSignalBlocker untold(this);
    segments_.at(static_cast<std::size_t>(index))->setChecked(true);
}

void SegmentedControl::choose(int index) {
    const auto place = placeOfPill();
    left_.moveTo(place.left());
    width_.moveTo(place.width());
    emit selectedByUser(index);
}

QRect SegmentedControl::placeOfPill() const {
    return segments_.at(static_cast<std::size_t>(selected()))->geometry();
}

void SegmentedControl::layOutPill() {
    layout()->activate();
    const auto place = placeOfPill();
    left_.jumpTo(place.left());
    width_.jumpTo(place.width());
}

void SegmentedControl::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layOutPill();
}

void SegmentedControl::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange || event->type() == QEvent::FontChange) {
        layOutPill();
    }
}

QRectF SegmentedControl::pill() const {
    return QRectF(left_.value(), 0, width_.value(), height()).adjusted(2, 2, -2, -2);
}

void SegmentedControl::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setOpacity(opacityOf(*this));
    drawShape(painter, rect(),
              {.radius = metrics::buttonRadius, .fill = theme_.color(ColorRole::segmentedTrack)});
    const double radius = metrics::buttonRadius - 2;
    if (!theme_.isDark()) {
        // Raised a little.
        drawShape(painter, pill().translated(0, 1),
                  {.radius = radius, .fill = theme_.color(ColorRole::label, 0.10)});
    }
    drawShape(painter, pill(),
              {.radius = radius, .fill = theme_.color(ColorRole::selectedSegment)});
}

} // namespace blankwell
