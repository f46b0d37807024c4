#include "views/GuideItem.h"

#include "widgets/Metrics.h"
#include "widgets/SymbolLabel.h"
#include "widgets/TextLabel.h"

#include <QHBoxLayout>

#include <algorithm>

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
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(metrics::symbolGap);
    if (texts.title.empty()) {
        row->addWidget(mark, 0, Qt::AlignVCenter);
        row->addWidget(guideText(theme, texts.text, ColorRole::label), 1, Qt::AlignVCenter);
        return;
    }
    auto* const title = new TextLabel(theme, texts.title, titleLook);
    const int markHeight = mark->sizeHint().expandedTo(mark->minimumSize()).height();
    const int inset = (title->sizeHint().height() - markHeight) / 2;
    auto* const markColumn = new QVBoxLayout;
    markColumn->setContentsMargins(0, std::max(inset, 0), 0, 0);
    markColumn->addWidget(mark);
    auto* const textColumn = new QVBoxLayout;
    textColumn->setContentsMargins(0, std::max(-inset, 0), 0, 0);
    textColumn->setSpacing(2);
    textColumn->addWidget(title);
    textColumn->addWidget(guideText(theme, texts.text, ColorRole::secondaryLabel));
    row->addLayout(markColumn);
    row->setAlignment(markColumn, Qt::AlignTop);
    row->addLayout(textColumn, 1);
}

GuideItem::GuideItem(const Theme& theme, std::string_view symbol, const Texts& texts,
                     QWidget* parent)
    : GuideItem(theme,
                new SymbolLabel(theme, symbol,
                                {.size = metrics::symbolSize,
                                 .columnWidth = texts.title.empty() ? 0 : metrics::symbolColumn}),
                texts, parent) {}

} // namespace blankwell
