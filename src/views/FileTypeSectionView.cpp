#include "views/FileTypeSectionView.h"

#include "views/DropIndicator.h"
#include "views/FileTypeRow.h"
#include "widgets/AccessibleRole.h"
#include "widgets/Heading.h"
#include "widgets/Metrics.h"
#include "widgets/QtStrings.h"
#include "widgets/Switch.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace blankwell {

FileTypeSectionView::FileTypeSectionView(const Theme& theme, FileTypesListModel& model,
                                         const FileTypeSection& section, QWidget* parent)
    : QWidget(parent),
      model_(model),
      column_(new QVBoxLayout),
      indicator_(new DropIndicator(theme, *this)) {
    setAccessibleRole(*this, QAccessible::List);
    setAccessibleName(qString(section.title));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(metrics::grid);
    auto* const title = new QHBoxLayout;
    title->setContentsMargins(Switch::ringMargin, 0, Switch::ringMargin, 0);
    title->addWidget(
        new Heading(theme, section.title,
                    {.style = TextStyle::sectionTitle, .color = ColorRole::secondaryLabel}));
    title->addStretch();
    layout->addLayout(title);
    column_->setSpacing(0);
    layout->addLayout(column_);
    for (const auto& row : section.rows) {
        rows_.push_back(makeRow(theme, row.type));
    }
    connect(&edgeScrolling_, &EdgeScrolling::scrolled, this, &FileTypeSectionView::dragTo);
    render(section);
}

FileTypeRow* FileTypeSectionView::makeRow(const Theme& theme, const FileTypeDefinition& type) {
    auto* const row = new FileTypeRow(theme, type, this);
    column_->addWidget(row);
    connect(row, &FileTypeRow::switchedByUser, this,
            [this, row](bool isOn) { model_.setEnabled(isOn, row->id()); });
    connect(row, &FileTypeRow::moveRequested, this,
            [this, row](FileTypesListModel::Direction direction) {
                if (model_.move(row->id(), direction)) {
                    emit movedByKeyboard();
                }
            });
    connect(row, &FileTypeRow::dragged, this, &FileTypeSectionView::dragTo);
    connect(row, &FileTypeRow::dropped, this, [this, row] { drop(*row); });
    connect(row, &FileTypeRow::dragCancelled, this, &FileTypeSectionView::endDrag);
    return row;
}

void FileTypeSectionView::render(const FileTypeSection& section) {
    const auto count = static_cast<int>(section.rows.size());
    bool isReordered = false;
    for (int i = 0; i < count; ++i) {
        const auto index = static_cast<std::size_t>(i);
        const auto& content = section.rows[index];
        const auto found = std::ranges::find(rows_, content.type.id, &FileTypeRow::id);
        std::rotate(rows_.begin() + i, found, found + 1);
        auto* const row = rows_[index];
        if (column_->indexOf(row) != i) {
            column_->insertWidget(i, row);
            isReordered = true;
        }
        row->setOn(content.isEnabled);
        row->setPosition(i + 1, count);
    }
    if (isReordered) {
        for (auto* const row : rows_) {
            row->raise(); // so that screen readers come to them in this order
        }
    }
}

/// How many rows have their middle above `place`.
std::size_t FileTypeSectionView::placeAt(QPoint place) const {
    const int y = mapFromGlobal(place).y();
    return static_cast<std::size_t>(std::ranges::count_if(
        rows_, [y](const FileTypeRow* row) { return row->geometry().center().y() < y; }));
}

void FileTypeSectionView::dragTo(QPoint place) {
    dropPlace_ = placeAt(place);
    indicator_->showAt(dropPlace_ < rows_.size() ? rows_[dropPlace_]->geometry().top()
                                                 : rows_.back()->geometry().bottom() + 1);
    edgeScrolling_.dragTo(place);
}

void FileTypeSectionView::drop(const FileTypeRow& row) {
    endDrag();
    using enum FileTypesListModel::Place;
    if (dropPlace_ < rows_.size()) {
        model_.move(row.id(), before, rows_[dropPlace_]->id());
    } else {
        model_.move(row.id(), after, rows_.back()->id());
    }
}

void FileTypeSectionView::endDrag() {
    indicator_->hide();
    edgeScrolling_.stop();
}

} // namespace blankwell
