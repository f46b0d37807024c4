#include "views/HelpCardView.h"

#include "base/Overloaded.h"
#include "views/GuideItem.h"
#include "views/HelpContent.h"
#include "views/HelpFileTypeGroupView.h"
#include "views/NumberBadge.h"
#include "widgets/Heading.h"
#include "widgets/Metrics.h"
#include "widgets/SymbolLabel.h"

#include <QVBoxLayout>

namespace blankwell {
namespace {

QLayout* titleRow(const Theme& theme, const HelpCard& card) {
    auto* const row = new QHBoxLayout;
    row->setSpacing(metrics::symbolGap);
    row->addWidget(
        new SymbolLabel(theme, card.icon, {.size = 20, .columnWidth = metrics::symbolColumn}));
    row->addWidget(new Heading(theme, card.title,
                               {.style = TextStyle::title3, .overflow = TextLabel::Overflow::wrap}),
                   1);
    return row;
}

QWidget* widgetOf(const Theme& theme, const HelpElement& element) {
    return std::visit(Overloaded{
                          [&](const GuideParagraph& paragraph) -> QWidget* {
                              return guideText(theme, paragraph.text, ColorRole::label);
                          },
                          [&](const HelpLocationRow& row) -> QWidget* {
                              return new GuideItem(theme, row.icon,
                                                   {.title = row.title, .text = row.text});
                          },
                          [&](const HelpStep& step) -> QWidget* {
                              return new GuideItem(theme, new NumberBadge(theme, step.number),
                                                   {.title = step.title, .text = step.text});
                          },
                          [&](const HelpHeading& heading) -> QWidget* {
                              return new Heading(theme, heading.title,
                                                 {.style = TextStyle::headline,
                                                  .overflow = TextLabel::Overflow::wrap});
                          },
                          [&](const HelpFileTypeGroup& group) -> QWidget* {
                              return new HelpFileTypeGroupView(theme, group);
                          },
                      },
                      element);
}

} // namespace

HelpCardView::HelpCardView(const Theme& theme, const HelpCard& card, QWidget* parent)
    : Card(theme, parent) {
    content().setSpacing(3 * metrics::grid);
    content().addLayout(titleRow(theme, card));
    for (const auto& element : card.content) {
        if (std::holds_alternative<HelpHeading>(element)) {
            content().addSpacing(metrics::grid);
        }
        content().addWidget(widgetOf(theme, element));
    }
}

} // namespace blankwell
