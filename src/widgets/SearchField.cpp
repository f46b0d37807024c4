#include "widgets/SearchField.h"

#include "widgets/Metrics.h"
#include "widgets/Painting.h"
#include "widgets/QtStrings.h"
#include "widgets/SymbolLabel.h"
#include "widgets/Theme.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPainter>

namespace blankwell {

SearchField::SearchField(const Theme& theme, std::string_view prompt, QWidget* parent)
    : QWidget(parent), theme_(theme), edit_(new QLineEdit) {
    edit_->setFrame(false);
    edit_->setPlaceholderText(qString(prompt));
    edit_->setAccessibleName(qString(prompt));
    edit_->installEventFilter(this);
    auto* const symbol =
        new SymbolLabel(theme, "magnifyingglass",
                        {.size = metrics::smallSymbolSize, .color = ColorRole::secondaryLabel});
    auto* const row = new QHBoxLayout(this);
    constexpr int side = metrics::focusRing + 10;
    constexpr int edge = metrics::focusRing + 2;
    row->setContentsMargins(side, edge, side, edge);
    row->setSpacing(metrics::grid + 2);
    row->addWidget(symbol);
    row->addWidget(edit_, 1);
    setFocusProxy(edit_);
    setMinimumHeight(metrics::fieldHeight + 2 * metrics::focusRing);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    alignText();
}

/// Text begins at the symbol, also where its own letters run the other way.
void SearchField::alignText() {
    const Qt::Alignment side =
        isRightToLeft() ? Qt::AlignRight | Qt::AlignAbsolute : Qt::Alignment(Qt::AlignLeading);
    edit_->setAlignment(Qt::AlignVCenter | side);
}

void SearchField::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) {
        alignText();
    }
}

bool SearchField::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        update();
    }
    return QWidget::eventFilter(watched, event);
}

void SearchField::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const bool hasKeyboard = edit_->hasFocus();
    constexpr double ring = metrics::focusRing;
    if (hasKeyboard) {
        drawShape(
            painter, rect(),
            {.radius = metrics::fieldRadius + ring, .fill = theme_.color(ColorRole::accent, 0.25)});
    }
    drawShape(painter, QRectF(rect()).adjusted(ring, ring, -ring, -ring),
              {.radius = metrics::fieldRadius,
               .fill = theme_.color(ColorRole::controlBackground),
               .outline = theme_.color(hasKeyboard ? ColorRole::accent : ColorRole::separator),
               .outlineWidth = hasKeyboard ? 1.5 : 1});
}

} // namespace blankwell
