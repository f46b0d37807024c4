#include "access/FolderAccessSetupView.h"

#include "access/FolderRootLabel.h"
#include "widgets/FlowLayout.h"
#include "widgets/Heading.h"
#include "widgets/IconButton.h"
#include "widgets/Metrics.h"
#include "widgets/PushButton.h"
#include "widgets/SymbolLabel.h"
#include "widgets/TextLabel.h"

#include <QHBoxLayout>
#include <QShowEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace blankwell {
namespace {

constexpr int spacing = 12;
constexpr int titleSymbolSize = 24;
constexpr int gap = 2 * metrics::grid;

} // namespace

FolderAccessSetupView::FolderAccessSetupView(const Theme& theme,
                                             const FolderAccessSetupModel::Services& services,
                                             QWidget* parent)
    : QWidget(parent),
      theme_(theme),
      model_(services, [this] { refresh(); }),
      roots_(new QWidget),
      rootsLayout_(new FlowLayout(gap, roots_)),
      status_(new TextLabel(theme, "",
                            {.style = TextStyle::caption,
                             .color = ColorRole::secondaryLabel,
                             .overflow = TextLabel::Overflow::wrap})) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(spacing);
    layout->addWidget(makeHeader());
    layout->addWidget(makeButtons());
    layout->addWidget(roots_);
    layout->addWidget(status_);
    refresh();
}

void FolderAccessSetupView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous()) {
        model_.appear();
    }
}

QWidget* FolderAccessSetupView::makeHeader() {
    summary_ = new TextLabel(theme_, "",
                             {.style = TextStyle::callout,
                              .color = ColorRole::secondaryLabel,
                              .overflow = TextLabel::Overflow::elideEnd});
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addWidget(
        new Heading(theme_, folderAccessSetupTexts.title, {.style = TextStyle::headline}));
    texts->addWidget(summary_);
    auto* const header = new QWidget;
    auto* const row = new QHBoxLayout(header);
    row->setContentsMargins({});
    row->setSpacing(metrics::symbolGap);
    row->addWidget(
        new SymbolLabel(theme_, folderAccessSetupTexts.symbol, {.size = titleSymbolSize}));
    row->addLayout(texts, 1);
    return header;
}

QWidget* FolderAccessSetupView::makeButtons() {
    auto* const buttons = new QWidget;
    auto* const flow = new FlowLayout(gap, buttons);
    for (const auto& [grant, title] : folderGrantButtons) {
        lastGrant_ = new PushButton(theme_, title);
        connect(lastGrant_, &QPushButton::clicked, this,
                [this, granted = grant] { model_.grant(granted); });
        flow->addWidget(lastGrant_);
    }
    return buttons;
}

void FolderAccessSetupView::refresh() {
    summary_->setText(model_.summary());
    status_->setText(model_.statusMessage());
    status_->setVisible(!model_.statusMessage().empty());
    auto rows = model_.rows();
    if (rows != shownRows_) {
        shownRows_ = std::move(rows);
        replaceRoots();
    }
    roots_->setVisible(!shownRows_.empty());
}

void FolderAccessSetupView::replaceRoots() {
    for (auto* const label : rootLabels_) {
        rootsLayout_->removeWidget(label);
        label->hide();
        label->deleteLater(); // it may be the one whose button was pressed
    }
    rootLabels_.clear();
    for (const auto& row : shownRows_) {
        auto* const label = new FolderRootLabel(theme_, row, roots_);
        connect(&label->forgetButton(), &QPushButton::clicked, this,
                [this, root = row.root] { forget(root); });
        rootsLayout_->addWidget(label);
        label->show();
        rootLabels_.push_back(label);
    }
}

void FolderAccessSetupView::forget(const FileUrl& root) {
    const auto index = static_cast<std::size_t>(
        std::ranges::find(shownRows_, root, &FolderRootRow::root) - shownRows_.begin());
    const bool hasKeyboard =
        index < rootLabels_.size() && rootLabels_[index]->forgetButton().hasFocus();
    model_.forget(root);
    if (hasKeyboard) {
        focusRoot(index);
    }
}

/// Keeps the keyboard near the root that stood at `index`.
void FolderAccessSetupView::focusRoot(std::size_t index) {
    if (rootLabels_.empty()) {
        lastGrant_->setFocus(Qt::OtherFocusReason);
        return;
    }
    rootLabels_[std::min(index, rootLabels_.size() - 1)]->forgetButton().setFocus(
        Qt::OtherFocusReason);
}

} // namespace blankwell
