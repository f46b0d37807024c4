#include "widgets/Segment.h"

#include "widgets/FocusVisibility.h"
#include "widgets/Metrics.h"
#include "widgets/Painting.h"
#include "widgets/QtStrings.h"
#include "widgets/Symbols.h"
#include "widgets/Theme.h"
#include "widgets/Typography.h"

#include <QPainter>

#include <algorithm>

namespace blankwell {
namespace {

constexpr int padding = 3 * metrics::grid;
constexpr int symbolGap = 6;

} // namespace

Segment::Segment(const Theme& theme, std::string_view title, std::string_view symbol,
                 QWidget* parent)
    : QRadioButton(parent), theme_(theme), title_(qString(title)), symbol_(symbol) {
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
    setAccessibleName(title_);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // Tab goes to the selected one, from where the arrows lead on.
    connect(this, &QRadioButton::toggled, this,
            [this](bool isSelected) { setFocusPolicy(isSelected ? Qt::TabFocus : Qt::NoFocus); });
}

int Segment::contentWidth() const {
    // As wide as when it is selected, so that nothing moves when it is.
    const int text = QFontMetrics(fontOf(TextStyle::calloutMedium)).horizontalAdvance(title_);
    return symbol_.empty() ? text : metrics::smallSymbolSize + symbolGap + text;
}

QSize Segment::sizeHint() const {
    const int height = QFontMetrics(fontOf(TextStyle::calloutMedium)).height();
    return {contentWidth() + 2 * padding,
            std::max(metrics::buttonHeight, height + 2 * metrics::grid)};
}

bool Segment::hitButton(const QPoint& place) const {
    return rect().contains(place);
}

void Segment::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setOpacity(opacityOf(*this));
    const bool isHovered = isEnabled() && underMouse();
    const QRectF ground = QRectF(rect()).adjusted(2, 2, -2, -2);
    if (!isChecked() && (isHovered || isDown())) {
        drawShape(painter, ground,
                  {.radius = metrics::buttonRadius - 2,
                   .fill = theme_.color(ColorRole::label, isDown() ? 0.1 : 0.05)});
    }
    if (showsFocus(*this)) {
        drawFocusOutline(painter, ground, metrics::buttonRadius - 2,
                         theme_.color(ColorRole::accent));
    }
    const auto color =
        theme_.color(isChecked() || isHovered ? ColorRole::label : ColorRole::secondaryLabel);
    QRectF content(0, 0, contentWidth(), height());
    content.moveCenter(QRectF(rect()).center());
    auto text = content;
    if (!symbol_.empty()) {
        auto symbol = content;
        symbol.setWidth(metrics::smallSymbolSize);
        drawSymbol(painter, symbol_, mirrored(symbol, *this), color);
        text.setLeft(symbol.right() + symbolGap);
    }
    painter.setPen(color);
    painter.setFont(fontOf(isChecked() ? TextStyle::calloutMedium : TextStyle::callout));
    drawLine(painter, mirrored(text, *this), Qt::AlignHCenter, title_, *this);
}

} // namespace blankwell
