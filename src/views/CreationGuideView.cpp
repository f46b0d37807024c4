#include "views/CreationGuideView.h"

#include "settings/AppSettings.h"
#include "views/CreationGuideContent.h"
#include "views/GuideItem.h"
#include "widgets/Heading.h"
#include "widgets/Metrics.h"
#include "widgets/SymbolLabel.h"

#include <QVBoxLayout>

namespace blankwell {
namespace {

QLayout* titleRow(const Theme& theme, const CreationGuideContent& content) {
    auto* const row = new QHBoxLayout;
    row->setSpacing(metrics::symbolGap);
    row->addWidget(
        new SymbolLabel(theme, content.symbol, {.size = 20, .columnWidth = metrics::symbolColumn}));
    row->addWidget(new Heading(theme, content.title,
                               {.style = TextStyle::title3, .overflow = TextLabel::Overflow::wrap}),
                   1);
    return row;
}

} // namespace

CreationGuideView::CreationGuideView(const Theme& theme, AppSettings& settings, QWidget* parent)
    : Card(theme, parent),
      theme_(theme),
      shortcut_(settings.quickCreateShortcut.observe(
          [this](const auto& shortcut) { show(shortcut.displayString()); })) {}

void CreationGuideView::show(std::string_view shortcut) {
    const auto guide = creationGuideContent(shortcut);
    delete guide_;
    guide_ = new QWidget;
    auto* const column = new QVBoxLayout(guide_);
    column->setContentsMargins({});
    column->setSpacing(3 * metrics::grid);
    column->addLayout(titleRow(theme_, guide));
    for (const auto& paragraph : guide.paragraphs) {
        column->addWidget(guideText(theme_, paragraph.text, ColorRole::label));
    }
    for (const auto& row : guide.rows) {
        column->addWidget(new GuideItem(theme_, row.symbol, {.title = {}, .text = row.text}));
    }
    content().addWidget(guide_);
}

} // namespace blankwell
