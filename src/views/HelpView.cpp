#include "views/HelpView.h"

#include "views/GuideItem.h"
#include "views/HelpCardView.h"
#include "views/HelpContent.h"
#include "widgets/Heading.h"
#include "widgets/Metrics.h"
#include "widgets/QtStrings.h"
#include "widgets/ScrollArea.h"
#include "widgets/Separator.h"
#include "widgets/SymbolLabel.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

namespace blankwell {
namespace {

constexpr QSize windowSize(680, 760);

constexpr int headerSymbolSize = 36;

QLayout* header(const Theme& theme, const HelpHeader& content) {
    using enum TextLabel::Overflow;
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addWidget(
        new Heading(theme, content.title, {.style = TextStyle::title, .overflow = wrap}));
    texts->addWidget(new TextLabel(
        theme, content.text,
        {.style = TextStyle::callout, .color = ColorRole::secondaryLabel, .overflow = wrap}));
    auto* const row = new QHBoxLayout;
    row->setSpacing(metrics::symbolGap);
    row->addWidget(new SymbolLabel(theme, content.symbol, {.size = headerSymbolSize}));
    row->addLayout(texts, 1);
    if (!content.version.empty()) {
        row->addWidget(
            new TextLabel(theme, content.version,
                          {.style = TextStyle::caption, .color = ColorRole::tertiaryLabel}));
    }
    return row;
}

QWidget* waysCard(const Theme& theme, const std::vector<HelpLocationRow>& ways) {
    auto* const card = new Card(theme);
    card->content().setSpacing(3 * metrics::grid);
    for (const auto& way : ways) {
        if (&way != &ways.front()) {
            card->content().addWidget(new Separator(theme));
        }
        card->content().addWidget(
            new GuideItem(theme, way.icon, {.title = way.title, .text = way.text}));
    }
    return card;
}

/// Whether a scroll bar understands the key.
bool scrolls(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
        return true;
    default:
        return false;
    }
}

} // namespace

HelpView::HelpView(const Theme& theme, const HelpContent& content, QWidget* parent)
    : QWidget(parent), area_(new ScrollArea(theme)) {
    setWindowTitle(qString(content.header.title));
    auto* const page = new QWidget;
    using metrics::mainWindowMargin;
    auto* const row = new QHBoxLayout(page);
    row->setContentsMargins(0, mainWindowMargin, 0, mainWindowMargin);
    row->setSpacing(0);
    auto* const column = new QVBoxLayout;
    row->addSpacing(mainWindowMargin);
    row->addLayout(column, 1);
    row->addSpacing(mainWindowMargin - ScrollArea::barWidth);
    column->setSpacing(metrics::cardSpacing);
    column->addLayout(header(theme, content.header));
    column->addWidget(new Separator(theme));
    column->addWidget(waysCard(theme, content.ways));
    for (const auto& card : content.cards) {
        column->addWidget(new HelpCardView(theme, card));
    }
    column->addStretch();
    area_->setWidget(page);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(area_);
}

QSize HelpView::sizeHint() const {
    return windowSize.boundedTo(screen()->availableSize());
}

void HelpView::keyPressEvent(QKeyEvent* event) {
    if (scrolls(*event)) {
        QCoreApplication::sendEvent(area_->verticalScrollBar(), event);
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace blankwell
