#include "views/ExtensionPageView.h"

#include "settings/AppSettings.h"
#include "views/CreationGuideView.h"
#include "views/ExtensionPageContent.h"
#include "views/FileManagerMenusView.h"
#include "views/GuideItem.h"
#include "widgets/Heading.h"
#include "widgets/Metrics.h"
#include "widgets/ScrollArea.h"
#include "widgets/SymbolLabel.h"
#include "widgets/TextLabel.h"

#include <QVBoxLayout>

namespace blankwell {
namespace {

constexpr int symbolSize = 34;

constexpr TextLabel::Look rowLook{.overflow = TextLabel::Overflow::wrap,
                                  .markup = TextLabel::Markup::boldRuns};

QLayout* makeRow(const Theme& theme, std::string_view symbol, TextLabel* text) {
    auto* const row = new QHBoxLayout;
    row->setSpacing(metrics::symbolGap);
    row->addWidget(
        new SymbolLabel(theme, symbol,
                        {.size = metrics::symbolSize, .columnWidth = metrics::symbolColumn}),
        0, Qt::AlignTop);
    row->addWidget(text, 1);
    return row;
}

} // namespace

ExtensionPageView::ExtensionPageView(const Theme& theme, AppSettings& settings,
                                     FileManagerMenusModel& menus, QWidget* parent)
    : QWidget(parent) {
    const auto content = extensionPageContent({});
    auto* const page = new QWidget;
    constexpr int margin = metrics::mainWindowMargin;
    auto* const row = new QHBoxLayout(page);
    row->setContentsMargins(0, margin, 0, margin);
    row->setSpacing(0);
    auto* const column = new QVBoxLayout;
    row->addSpacing(margin);
    row->addLayout(column, 1);
    row->addSpacing(margin - ScrollArea::barWidth);
    column->setSpacing(metrics::cardSpacing);
    column->addWidget(new SymbolLabel(theme, content.symbol, {.size = symbolSize}));
    column->addWidget(new Heading(
        theme, content.title, {.style = TextStyle::title, .overflow = TextLabel::Overflow::wrap}));
    column->addWidget(guideText(theme, content.introduction.text, ColorRole::secondaryLabel));
    column->addWidget(new FileManagerMenusView(theme, menus));
    column->addWidget(new CreationGuideView(theme, settings));
    column->addWidget(guideText(theme, content.otherWays.text, ColorRole::secondaryLabel));
    for (const auto& shown : content.rows) {
        rows_.push_back(new TextLabel(theme, {}, rowLook));
        column->addLayout(makeRow(theme, shown.symbol, rows_.back()));
    }
    column->addStretch(1);

    auto* const area = new ScrollArea(theme);
    area->setWidget(page);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(area);
    shortcut_ = settings.quickCreateShortcut.observe(
        [this](const auto& shortcut) { render(shortcut.displayString()); });
}

void ExtensionPageView::render(std::string_view shortcut) {
    const auto content = extensionPageContent(shortcut);
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        rows_[i]->setText(content.rows.at(i).text);
    }
}

} // namespace blankwell
