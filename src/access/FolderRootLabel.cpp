#include "access/FolderRootLabel.h"

#include "widgets/IconButton.h"
#include "widgets/Metrics.h"
#include "widgets/QtStrings.h"
#include "widgets/SymbolLabel.h"
#include "widgets/TextLabel.h"

#include <QHBoxLayout>

namespace blankwell {

FolderRootLabel::FolderRootLabel(const Theme& theme, const FolderRootRow& content, QWidget* parent)
    : QWidget(parent),
      forget_(new IconButton(theme, {.symbol = folderAccessSetupTexts.forgetSymbol,
                                     .help = folderAccessSetupTexts.forget,
                                     .symbolSize = metrics::smallSymbolSize,
                                     .color = ColorRole::tertiaryLabel})) {
    auto* const symbol =
        new SymbolLabel(theme, content.symbol,
                        {.size = metrics::smallSymbolSize, .color = ColorRole::secondaryLabel});
    auto* const name = new TextLabel(theme, content.name,
                                     {.style = TextStyle::caption,
                                      .color = ColorRole::secondaryLabel,
                                      .overflow = TextLabel::Overflow::elideMiddle});
    const auto path = qString(content.root.path());
    symbol->setToolTip(path);
    name->setToolTip(path);
    // All of these buttons have one name.
    forget_->setAccessibleDescription(qString(content.name));

    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(metrics::grid);
    row->addWidget(symbol);
    row->addSpacing(metrics::grid / 2);
    row->addWidget(name);
    row->addWidget(forget_);
}

} // namespace blankwell
