#include "views/FileManagerMenuRowView.h"

#include "views/FileManagerMenusModel.h"
#include "widgets/AccessibleRole.h"
#include "widgets/Metrics.h"
#include "widgets/QtStrings.h"
#include "widgets/Switch.h"
#include "widgets/TextLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace blankwell {

FileManagerMenuRowView::FileManagerMenuRowView(const Theme& theme, const FileManagerMenuRow& row,
                                               QWidget* parent)
    : QWidget(parent),
      toggle_(new Switch(theme, row.name)),
      note_(new TextLabel(theme, "",
                          {.style = TextStyle::caption, .overflow = TextLabel::Overflow::wrap})) {
    setAccessibleRole(*this, QAccessible::ListItem);
    setAccessibleName(qString(row.name));
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addStretch();
    texts->addWidget(
        new TextLabel(theme, row.name, {.overflow = TextLabel::Overflow::elideMiddle}));
    texts->addWidget(note_);
    texts->addStretch();
    auto* const line = new QHBoxLayout(this);
    line->setContentsMargins(0, metrics::grid, 0, metrics::grid);
    line->addStrut(metrics::rowHeight - 2 * metrics::grid);
    line->setSpacing(metrics::symbolGap);
    line->addSpacing(Switch::ringMargin);
    line->addLayout(texts, 1);
    line->addWidget(toggle_);
    connect(toggle_, &Switch::toggled, this, [this](bool isOn) {
        if (isOn != isOn_) {
            isOn_ = isOn;
            emit switchedByUser(isOn);
        }
    });
    show(row);
}

void FileManagerMenuRowView::show(const FileManagerMenuRow& row) {
    isOn_ = row.isOn;
    toggle_->setChecked(row.isOn);
    toggle_->setEnabled(row.canBeSwitched);
    toggle_->setAccessibleDescription(qString(row.note));
    note_->setText(row.note);
    note_->setColor(row.hasFailed ? ColorRole::red : ColorRole::secondaryLabel);
    note_->setVisible(!row.note.empty());
}

} // namespace blankwell
