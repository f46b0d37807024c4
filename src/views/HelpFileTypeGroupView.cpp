#include "views/HelpFileTypeGroupView.h"

#include "views/HelpContent.h"
#include "widgets/Heading.h"
#include "widgets/Metrics.h"
#include "widgets/SymbolLabel.h"

#include <QGridLayout>

namespace blankwell {
namespace {

constexpr int columns = 2;

QWidget* typeItem(const Theme& theme, const FileTypeDefinition& type) {
    auto* const item = new QWidget;
    auto* const row = new QHBoxLayout(item);
    row->setContentsMargins({});
    row->setSpacing(2 * metrics::grid);
    row->addWidget(
        new SymbolLabel(theme, type.sfSymbolName,
                        {.size = metrics::symbolSize, .columnWidth = metrics::symbolColumn}));
    row->addWidget(
        new TextLabel(theme, type.displayName, {.overflow = TextLabel::Overflow::elideEnd}));
    row->addWidget(
        new TextLabel(theme, "." + type.fileExtension,
                      {.style = TextStyle::caption, .color = ColorRole::secondaryLabel}));
    row->addStretch(1);
    return item;
}

} // namespace

HelpFileTypeGroupView::HelpFileTypeGroupView(const Theme& theme, const HelpFileTypeGroup& group,
                                             QWidget* parent)
    : QWidget(parent) {
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 2 * metrics::grid);
    grid->setSpacing(2 * metrics::grid);
    grid->addWidget(
        new Heading(theme, group.title,
                    {.style = TextStyle::sectionTitle, .color = ColorRole::secondaryLabel}),
        0, 0, 1, columns);
    int index = 0;
    for (const auto& type : group.types) {
        grid->addWidget(typeItem(theme, type), 1 + index / columns, index % columns);
        ++index;
    }
    for (int column = 0; column < columns; ++column) {
        grid->setColumnStretch(column, 1);
        grid->setColumnMinimumWidth(column, 0);
    }
}

} // namespace blankwell
