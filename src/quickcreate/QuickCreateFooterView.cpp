#include "quickcreate/QuickCreateFooterView.h"

#include "quickcreate/QuickCreateContents.h"
#include "widgets/Metrics.h"
#include "widgets/SymbolLabel.h"
#include "widgets/TextLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace blankwell {

QuickCreateFooterView::QuickCreateFooterView(const Theme& theme, QWidget* parent)
    : QWidget(parent),
      symbol_(new SymbolLabel(
          theme, "",
          {.size = metrics::symbolSize, .columnWidth = 18, .color = ColorRole::secondaryLabel})),
      firstLine_(new TextLabel(
          theme, "",
          {.style = TextStyle::captionMedium, .overflow = TextLabel::Overflow::elideMiddle})),
      secondLine_(new TextLabel(theme, "",
                                {.style = TextStyle::smallCaption,
                                 .color = ColorRole::secondaryLabel,
                                 .overflow = TextLabel::Overflow::elideMiddle})) {
    auto* const lines = new QVBoxLayout;
    lines->setSpacing(1);
    lines->addWidget(firstLine_);
    lines->addWidget(secondLine_);
    auto* const row = new QHBoxLayout(this);
    constexpr int edge = 10;
    row->setContentsMargins(metrics::panelMargin, edge, metrics::panelMargin, edge);
    row->setSpacing(metrics::symbolGap);
    row->addWidget(symbol_);
    row->addLayout(lines, 1);
}

void QuickCreateFooterView::setFooter(const QuickCreateFooter& footer) {
    symbol_->setSymbol(footer.symbol);
    firstLine_->setText(footer.firstLine);
    secondLine_->setText(footer.secondLine);
}

} // namespace blankwell
