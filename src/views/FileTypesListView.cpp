#include "views/FileTypesListView.h"

#include "platform/ObserveLater.h"
#include "settings/AppSettings.h"
#include "views/FileTypeRow.h"
#include "views/FileTypeSectionView.h"
#include "widgets/Metrics.h"
#include "widgets/Switch.h"

#include <QApplication>
#include <QScrollArea>
#include <QVBoxLayout>

#include <utility>

namespace blankwell {

FileTypesListView::FileTypesListView(const Theme& theme, AppSettings& settings,
                                     MainQueue& mainQueue, QWidget* parent)
    : Card(theme, parent), model_(settings) {
    content().setSpacing(metrics::cardSpacing);
    // The rings of the switches are beyond what stands in line.
    constexpr int side = metrics::cardPadding - Switch::ringMargin;
    content().setContentsMargins(side, metrics::cardPadding, side, metrics::cardPadding);
    for (const auto& section : model_.sections()) {
        sections_.push_back(new FileTypeSectionView(theme, model_, section));
        content().addWidget(sections_.back());
        connect(sections_.back(), &FileTypeSectionView::movedByKeyboard, this,
                [this] { isMovedByKeyboard_ = true; });
    }
    const auto renderLater = [this](const auto&) { render(); };
    subscriptions_.push_back(observeLater(settings.enabledFileTypeIDs, mainQueue, renderLater));
    subscriptions_.push_back(observeLater(settings.fileTypeOrder, mainQueue, renderLater));
    orderKeyboardFocus();
}

void FileTypesListView::render() {
    const auto sections = model_.sections();
    for (std::size_t i = 0; i < sections_.size(); ++i) {
        sections_[i]->render(sections.at(i));
    }
    orderKeyboardFocus();
    if (std::exchange(isMovedByKeyboard_, false)) {
        // Once the rows are where they belong.
        QMetaObject::invokeMethod(this, &FileTypesListView::keepFocusInSight, Qt::QueuedConnection);
    }
}

void FileTypesListView::orderKeyboardFocus() {
    QWidget* before = nullptr;
    for (const auto* const section : sections_) {
        for (const auto* const row : section->rows()) {
            if (before != nullptr) {
                setTabOrder(before, &row->toggle());
            }
            before = &row->toggle();
        }
    }
}

void FileTypesListView::keepFocusInSight() {
    auto* const focused = QApplication::focusWidget();
    if (focused == nullptr || !isAncestorOf(focused)) {
        return;
    }
    for (auto* widget = parentWidget(); widget != nullptr; widget = widget->parentWidget()) {
        if (auto* const area = qobject_cast<QScrollArea*>(widget)) {
            area->ensureWidgetVisible(focused);
        }
    }
}

} // namespace blankwell
