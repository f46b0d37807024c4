#include "shell/CardView.h"

#include "shell/CardTexts.h"
#include "widgets/Heading.h"
#include "widgets/Metrics.h"
#include "widgets/PushButton.h"
#include "widgets/SymbolLabel.h"
#include "widgets/TextLabel.h"

#include <QVBoxLayout>

namespace blankwell {
namespace {

constexpr int symbolSize = 24;

} // namespace

CardView::CardView(const Theme& theme, const CardTexts& texts, const std::function<void()>& act,
                   QWidget* parent)
    : Card(theme, parent) {
    auto* const symbol =
        new SymbolLabel(theme, texts.symbol, {.size = symbolSize, .color = texts.symbolColor});
    auto* const title = new Heading(
        theme, texts.title, {.style = TextStyle::headline, .overflow = TextLabel::Overflow::wrap});
    auto* const text = new TextLabel(theme, texts.text,
                                     {.style = TextStyle::callout,
                                      .color = ColorRole::secondaryLabel,
                                      .overflow = TextLabel::Overflow::wrap});
    auto* const button = new PushButton(theme, texts.button);
    button->setAccessibleDescription(text->text());
    connect(button, &PushButton::clicked, this, act);

    auto* const lines = new QVBoxLayout;
    lines->setSpacing(metrics::grid / 2);
    lines->addWidget(title);
    lines->addWidget(text);
    auto* const row = new QHBoxLayout;
    row->setSpacing(metrics::symbolGap);
    row->addWidget(symbol, 0, Qt::AlignVCenter);
    row->addLayout(lines, 1);
    row->addSpacing(metrics::grid);
    row->addWidget(button, 0, Qt::AlignVCenter);
    content().addLayout(row);
}

} // namespace blankwell
