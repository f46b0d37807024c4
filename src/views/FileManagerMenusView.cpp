#include "views/FileManagerMenusView.h"

#include "views/FileManagerMenuRowView.h"
#include "views/FileManagerMenusModel.h"
#include "widgets/AccessibleRole.h"
#include "widgets/Heading.h"
#include "widgets/Metrics.h"
#include "widgets/QtStrings.h"
#include "widgets/Separator.h"
#include "widgets/Switch.h"
#include "widgets/SymbolLabel.h"

#include <QShowEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

namespace blankwell {
namespace {

constexpr int titleSymbolSize = 24;

std::vector<FileManager> managersOf(const FileManagerMenusContent& content) {
    std::vector<FileManager> managers;
    std::ranges::transform(content.rows, std::back_inserter(managers),
                           &FileManagerMenuRow::manager);
    return managers;
}

QLayout* withMargins(QWidget* widget) {
    auto* const line = new QHBoxLayout;
    line->setContentsMargins(Switch::ringMargin, 0, Switch::ringMargin, 0);
    line->addWidget(widget);
    return line;
}

} // namespace

FileManagerMenusView::FileManagerMenusView(const Theme& theme, FileManagerMenusModel& model,
                                           QWidget* parent)
    : Card(theme, parent),
      theme_(theme),
      model_(model),
      text_(new TextLabel(theme, "",
                          {.style = TextStyle::callout,
                           .color = ColorRole::secondaryLabel,
                           .overflow = TextLabel::Overflow::wrap,
                           .markup = TextLabel::Markup::boldRuns})) {
    const auto& [symbol, title] = fileManagerMenusTexts;
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addWidget(new Heading(
        theme, title, {.style = TextStyle::headline, .overflow = TextLabel::Overflow::wrap}));
    texts->addWidget(text_);
    auto* const header = new QHBoxLayout;
    header->setContentsMargins(Switch::ringMargin, 0, Switch::ringMargin, 0);
    header->setSpacing(metrics::symbolGap);
    header->addWidget(new SymbolLabel(theme, symbol, {.size = titleSymbolSize}), 0,
                      Qt::AlignVCenter);
    header->addLayout(texts, 1);
    // The rings of the switches are beyond what stands in line.
    constexpr int side = metrics::cardPadding - Switch::ringMargin;
    content().setContentsMargins(side, metrics::cardPadding, side, metrics::cardPadding);
    content().addLayout(header);
    shown_ = model.content().observe([this](const auto& shown) { render(shown); });
}

void FileManagerMenusView::showEvent(QShowEvent* event) {
    Card::showEvent(event);
    if (!event->spontaneous()) {
        model_.refresh();
    }
}

void FileManagerMenusView::render(const FileManagerMenusContent& shown) {
    text_->setText(shown.text);
    if (managersOf(shown) != managers_) {
        replaceRows(shown);
    }
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        rows_[i]->show(shown.rows.at(i));
    }
}

void FileManagerMenusView::replaceRows(const FileManagerMenusContent& shown) {
    managers_ = managersOf(shown);
    rows_.clear();
    if (list_ != nullptr) {
        content().removeWidget(list_);
        list_->hide();
        list_->deleteLater(); // it may hold the switch that was turned
        list_ = nullptr;
    }
    if (shown.rows.empty()) {
        return;
    }
    list_ = new QWidget;
    setAccessibleRole(*list_, QAccessible::List);
    list_->setAccessibleName(qString(fileManagerMenusTexts.title));
    auto* const column = new QVBoxLayout(list_);
    column->setContentsMargins({});
    column->setSpacing(0);
    for (const auto& row : shown.rows) {
        if (!rows_.empty()) {
            column->addLayout(withMargins(new Separator(theme_)));
        }
        rows_.push_back(new FileManagerMenuRowView(theme_, row));
        column->addWidget(rows_.back());
        connect(rows_.back(), &FileManagerMenuRowView::switchedByUser, this,
                [this, manager = row.manager](bool isOn) { model_.turn(manager, isOn); });
    }
    content().addWidget(list_);
    list_->show(); // at once, and not in the next turn of the event loop
}

} // namespace blankwell
