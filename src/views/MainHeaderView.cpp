#include "views/MainHeaderView.h"

#include "views/MainWindowContent.h"
#include "widgets/Heading.h"
#include "widgets/Metrics.h"
#include "widgets/Separator.h"
#include "widgets/SymbolLabel.h"
#include "widgets/TextLabel.h"

#include <QVBoxLayout>

namespace blankwell {
namespace {

constexpr int symbolSize = 34;

QLayout* makeTitles(const Theme& theme) {
    auto* const lines = new QVBoxLayout;
    lines->setSpacing(metrics::grid / 2);
    lines->addWidget(new Heading(theme, mainWindowTexts.title, {.style = TextStyle::title}));
    lines->addWidget(new TextLabel(theme, mainWindowTexts.callout,
                                   {.style = TextStyle::callout,
                                    .color = ColorRole::secondaryLabel,
                                    .overflow = TextLabel::Overflow::wrap}));
    return lines;
}

} // namespace

MainHeaderView::MainHeaderView(const Theme& theme, const Bundle& bundle, QWidget* parent)
    : QWidget(parent) {
    auto* const row = new QHBoxLayout;
    row->setSpacing(metrics::symbolGap);
    row->addWidget(new SymbolLabel(theme, mainWindowTexts.symbol,
                                   {.size = symbolSize, .color = ColorRole::accent}),
                   0, Qt::AlignVCenter);
    row->addLayout(makeTitles(theme), 1);
    row->addWidget(new TextLabel(theme, versionText(bundle),
                                 {.style = TextStyle::caption, .color = ColorRole::tertiaryLabel}),
                   0, Qt::AlignVCenter);

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(metrics::cardSpacing);
    column->addLayout(row);
    column->addWidget(new Separator(theme));
}

} // namespace blankwell
