#include "widgets/ScrollBarStyle.h"

#include "widgets/Painting.h"
#include "widgets/Theme.h"

#include <QPainter>
#include <QStyleOptionSlider>

#include <algorithm>

namespace blankwell {
namespace {

constexpr int shortestHandle = 28;
constexpr double handleWidth = 6;

QRect handleRect(const QStyleOptionSlider& bar) {
    const auto range = qint64(bar.maximum) - bar.minimum;
    const int length = bar.rect.height();
    const auto share = qint64(bar.pageStep) * length / std::max<qint64>(range + bar.pageStep, 1);
    const int handle =
        std::clamp(static_cast<int>(share), std::min(shortestHandle, length), length);
    const int start = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                      length - handle, bar.upsideDown);
    return {bar.rect.left(), bar.rect.top() + start, bar.rect.width(), handle};
}

QRect partRect(const QStyleOptionSlider& bar, QStyle::SubControl part) {
    const auto handle = handleRect(bar);
    switch (part) {
    case QStyle::SC_ScrollBarSlider:
        return handle;
    case QStyle::SC_ScrollBarGroove:
        return bar.rect;
    case QStyle::SC_ScrollBarSubPage:
        return {bar.rect.topLeft(), QPoint(bar.rect.right(), handle.top() - 1)};
    case QStyle::SC_ScrollBarAddPage:
        return {QPoint(bar.rect.left(), handle.bottom() + 1), bar.rect.bottomRight()};
    default:
        return {};
    }
}

} // namespace

int ScrollBarStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                                const QWidget* widget) const {
    return metric == PM_ScrollBarExtent ? width_ : QProxyStyle::pixelMetric(metric, option, widget);
}

QRect ScrollBarStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                     SubControl part, const QWidget* widget) const {
    const auto* const bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    return control == CC_ScrollBar && bar != nullptr
               ? partRect(*bar, part)
               : QProxyStyle::subControlRect(control, option, part, widget);
}

void ScrollBarStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                        QPainter* painter, const QWidget* widget) const {
    const auto* const bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || bar == nullptr) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    if (bar->maximum <= bar->minimum) {
        return;
    }
    QRectF handle = handleRect(*bar);
    const auto margin = (handle.width() - handleWidth) / 2;
    handle.adjust(margin, margin, -margin, -margin);
    double opacity = bar->state.testFlag(State_MouseOver) ? 0.4 : 0.22;
    if (bar->state.testFlag(State_Sunken)) {
        opacity = 0.55;
    }
    painter->save();
    drawShape(*painter, handle,
              {.radius = handleWidth / 2, .fill = theme_.color(ColorRole::label, opacity)});
    painter->restore();
}

} // namespace blankwell
