#include "views/GuideItem.h"

#include "widgets/Metrics.h"
#include "widgets/SymbolLabel.h"
#include "widgets/TextLabel.h"

#include <QGridLayout>

namespace blankwell {
namespace {

constexpr TextLabel::Look titleLook{.style = TextStyle::headline,
                                    .overflow = TextLabel::Overflow::wrap};

} // namespace

QWidget* guideText(const Theme& theme, std::string_view text, ColorRole color,
                   Qt::Alignment alignment) {
    return new TextLabel(theme, text,
                         {.color = color,
                          .overflow = TextLabel::Overflow::wrap,
                          .markup = TextLabel::Markup::boldRuns,
                          .alignment = alignment});
}

GuideItem::GuideItem(const Theme& theme, QWidget* mark, const Texts& texts, QWidget* parent)
    : QWidget(parent) {
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins({});
    grid->setHorizontalSpacing(metrics::symbolGap);
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(1, 1);
    grid->addWidget(mark, 0, 0, Qt::AlignVCenter);
    if (texts.title.empty()) {
        grid->addWidget(guideText(theme, texts.text, ColorRole::label), 0, 1, Qt::AlignVCenter);
        return;
    }
    grid->addWidget(new TextLabel(theme, texts.title, titleLook), 0, 1, Qt::AlignVCenter);
    grid->addWidget(guideText(theme, texts.text, ColorRole::secondaryLabel), 1, 1);
}

GuideItem::GuideItem(const Theme& theme, std::string_view symbol, const Texts& texts,
                     QWidget* parent)
    : GuideItem(theme,
                new SymbolLabel(theme, symbol,
                                {.size = metrics::symbolSize,
                                 .columnWidth = texts.title.empty() ? 0 : metrics::symbolColumn}),
                texts, parent) {}

} // namespace blankwell
