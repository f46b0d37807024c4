#include "settings/DirectFileShortcutRow.h"

#include "settings/OptionalShortcutRecorderView.h"
#include "widgets/IconButton.h"
#include "widgets/Metrics.h"
#include "widgets/SymbolLabel.h"
#include "widgets/TextLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace blankwell {
namespace {

constexpr QSize recorderSize(180, 32);

} // namespace

DirectFileShortcutRow::DirectFileShortcutRow(const Theme& theme, ShortcutSettingsModel& model,
                                             const ShortcutRecorderServices& services,
                                             const DirectShortcutRowContent& content,
                                             QWidget* parent)
    : QWidget(parent), content_(content) {
    const auto set = [&model, id = content.fileTypeID](const auto& shortcut) {
        model.setShortcut(shortcut, id);
    };
    auto* const title =
        new TextLabel(theme, content.title,
                      {.style = TextStyle::callout, .overflow = TextLabel::Overflow::elideEnd});
    caption_ = new TextLabel(theme, content.caption.text,
                             {.style = TextStyle::caption,
                              .color = content.caption.color,
                              .overflow = TextLabel::Overflow::elideEnd});
    recorder_ =
        new OptionalShortcutRecorderView(theme, content.title + " shortcut", services,
                                         {.get = [this] { return content_.shortcut; }, .set = set});
    recorder_->setUsualSize(recorderSize);
    clear_ = new IconButton(
        theme, {.symbol = shortcutSettingsTexts.clearSymbol, .help = content.clearHelp});
    connect(clear_, &QPushButton::clicked, this, [set] { set(std::nullopt); });

    auto* const texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addStretch();
    texts->addWidget(title);
    texts->addWidget(caption_);
    texts->addStretch();
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(metrics::symbolGap);
    row->addWidget(
        new SymbolLabel(theme, content.symbol,
                        {.size = metrics::symbolSize, .columnWidth = metrics::symbolColumn}));
    row->addLayout(texts, 1);
    row->addWidget(recorder_);
    row->addWidget(clear_);
    show(content);
}

void DirectFileShortcutRow::show(const DirectShortcutRowContent& content) {
    content_ = content;
    caption_->setText(content.caption.text);
    caption_->setColor(content.caption.color);
    recorder_->readBinding();
    if (!content.isClearEnabled && clear_->hasFocus()) {
        recorder_->setFocus(Qt::OtherFocusReason); // a disabled button hands it to the next row
    }
    clear_->setEnabled(content.isClearEnabled);
}

QWidget& DirectFileShortcutRow::placeInTabOrder(QWidget& previous) {
    setTabOrder(&previous, recorder_);
    setTabOrder(recorder_, clear_);
    return *clear_;
}

} // namespace blankwell
