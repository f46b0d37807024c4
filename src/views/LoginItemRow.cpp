#include "views/LoginItemRow.h"

#include "views/LoginItemModel.h"
#include "widgets/Metrics.h"
#include "widgets/QtStrings.h"
#include "widgets/Switch.h"
#include "widgets/TextLabel.h"

#include <QHBoxLayout>
#include <QShowEvent>

namespace blankwell {

LoginItemRow::LoginItemRow(const Theme& theme, LoginItemModel& model, QWidget* parent)
    : QWidget(parent),
      model_(model),
      caption_(new TextLabel(theme, "",
                             {.style = TextStyle::caption,
                              .color = ColorRole::secondaryLabel,
                              .overflow = TextLabel::Overflow::wrap})),
      toggle_(new Switch(theme, loginItemTexts.title)) {
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(metrics::grid / 2);
    texts->addWidget(
        new TextLabel(theme, loginItemTexts.title, {.overflow = TextLabel::Overflow::wrap}));
    texts->addWidget(caption_);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(metrics::symbolGap);
    row->addSpacing(Switch::ringMargin);
    row->addLayout(texts, 1);
    row->addWidget(toggle_, 0, Qt::AlignVCenter);
    connect(toggle_, &Switch::toggled, this, [this](bool isOn) {
        if (isOn != model_.content().isOn) {
            model_.setOn(isOn);
        }
    });
    changes_ = model_.observeChanges([this] { render(); });
    render();
}

void LoginItemRow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous()) {
        model_.reload();
    }
}

void LoginItemRow::render() {
    const auto& content = model_.content();
    toggle_->setChecked(content.isOn);
    toggle_->setEnabled(content.isEnabled);
    toggle_->setAccessibleDescription(qString(content.caption));
    caption_->setText(content.caption);
    caption_->setColor(content.captionColor);
}

} // namespace blankwell
