#include "views/OnboardingPageView.h"

#include "base/Overloaded.h"
#include "views/FinderMenuPicture.h"
#include "views/GuideItem.h"
#include "views/QuickCreatePicture.h"
#include "views/ShortcutLine.h"
#include "widgets/Heading.h"
#include "widgets/Metrics.h"
#include "widgets/ScrollArea.h"
#include "widgets/SymbolLabel.h"

#include <QVBoxLayout>

#include <utility>

namespace blankwell {
namespace {

constexpr int sideMargin = metrics::mainWindowMargin;
/// How much further the rows stand from the sides.
constexpr int indent = 8 * metrics::grid;
constexpr int topMargin = 9 * metrics::grid;
constexpr int headerSymbolSize = 40;
/// On a page with nothing else.
constexpr int loneSymbolSize = 64;

} // namespace

OnboardingPageView::OnboardingPageView(const Theme& theme, OnboardingPage page, QWidget* parent)
    : QWidget(parent), theme_(theme), page_(std::move(page)) {
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, topMargin, 0, 4 * metrics::grid);
    row->setSpacing(0);
    auto* const column = new QVBoxLayout;
    // The scroll bar's room beside the page must not move its middle.
    row->addSpacing(sideMargin);
    row->addLayout(column, 1);
    row->addSpacing(sideMargin - ScrollArea::barWidth);
    column->setSpacing(3 * metrics::grid);
    if (page_.elements.empty()) {
        column->addStretch(2);
    }
    addHeader(*column);
    auto* const body = new QVBoxLayout;
    body->setContentsMargins(indent, 0, indent, 0);
    for (const auto& element : page_.elements) {
        add(*body, element);
    }
    column->addLayout(body);
    column->addStretch(3);
}

void OnboardingPageView::addHeader(QVBoxLayout& column) {
    const int symbolSize = page_.elements.empty() ? loneSymbolSize : headerSymbolSize;
    column.addWidget(new SymbolLabel(theme_, page_.symbol, {.size = symbolSize}), 0,
                     Qt::AlignHCenter);
    column.addSpacing(metrics::grid);
    column.addWidget(new Heading(theme_, page_.title,
                                 {.style = TextStyle::title,
                                  .overflow = TextLabel::Overflow::wrap,
                                  .alignment = Qt::AlignHCenter}));
    column.addWidget(guideText(theme_, page_.text, ColorRole::secondaryLabel, Qt::AlignHCenter));
    column.addSpacing(metrics::grid);
}

void OnboardingPageView::add(QVBoxLayout& column, const OnboardingElement& element) {
    std::visit(Overloaded{
                   [&](const OnboardingShortcutLine& line) {
                       column.addWidget(new ShortcutLine(theme_, line));
                   },
                   [&](const GuideRow& row) {
                       column.addWidget(
                           new GuideItem(theme_, row.symbol, {.title = {}, .text = row.text}));
                   },
                   [&](const OnboardingStep& step) {
                       column.addWidget(new GuideItem(theme_, step.symbol,
                                                      {.title = step.title, .text = step.text}));
                       column.addSpacing(2 * metrics::grid);
                   },
                   [&](const FinderMenuIllustration& menu) {
                       column.addWidget(new FinderMenuPicture(theme_, menu), 0, Qt::AlignHCenter);
                   },
                   [&](const QuickCreateIllustration& panel) {
                       column.addWidget(new QuickCreatePicture(theme_, panel), 0, Qt::AlignHCenter);
                   },
               },
               element);
}

} // namespace blankwell
