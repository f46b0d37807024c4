#include "quickcreate/QuickCreatePanelView.h"

#include "filetypes/FileTypeCatalog.h"
#include "platform/ObserveLater.h"
#include "quickcreate/DesktopCreationController.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <utility>

namespace blankwell {
namespace {

QString qt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

QuickCreatePanelView::QuickCreatePanelView(DesktopCreationController& controller,
                                           MainQueue& mainQueue, SymbolIcon symbolIcon)
    : controller_(controller),
      symbolIcon_(std::move(symbolIcon)),
      search_(new QLineEdit),
      types_(new QListWidget),
      status_(new QLabel) {
    layOut();
    connectControls();
    follow(mainQueue);
    refreshTypes();
    refreshStatus();
}

void QuickCreatePanelView::layOut() {
    auto* const close = new QToolButton;
    close->setIcon(symbolIcon_("xmark.circle"));
    close->setAutoRaise(true);
    close->setToolTip("Close");
    close->setAccessibleName("Close");
    connect(close, &QToolButton::clicked, this, [this] { controller_.closeQuickCreatePanel(); });
    auto* const header = new QHBoxLayout;
    header->addWidget(new QLabel("Create File"), 1);
    header->addWidget(close);

    search_->setPlaceholderText("Search file types");
    search_->setAccessibleName("Search file types");
    types_->setAccessibleName("File types");
    status_->setTextFormat(Qt::PlainText);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 20);
    layout->setSpacing(12);
    layout->addLayout(header);
    layout->addWidget(search_);
    layout->addWidget(types_, 1);
    layout->addWidget(status_);
    setFocusProxy(search_);
}

void QuickCreatePanelView::connectControls() {
    connect(search_, &QLineEdit::textChanged, this,
            [this](const QString& text) { controller_.searchText.set(text.toStdString()); });
    connect(search_, &QLineEdit::returnPressed, this, [this] { createFirst(); });
    connect(types_, &QListWidget::itemActivated, this,
            [this](const QListWidgetItem* item) { create(item); });
}

void QuickCreatePanelView::follow(MainQueue& mainQueue) {
    subscriptions_.push_back(
        observeLater(controller_.searchText, mainQueue, [this](const auto&) { refreshTypes(); }));
    subscriptions_.push_back(observeLater(controller_.statusMessage, mainQueue,
                                          [this](const auto&) { refreshStatus(); }));
}

void QuickCreatePanelView::showEvent(QShowEvent* event) {
    refreshTypes(); // the settings may have changed since
    QWidget::showEvent(event);
}

void QuickCreatePanelView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        controller_.closeQuickCreatePanel();
    } else if (event->key() == Qt::Key_Down && search_->hasFocus()) {
        types_->setFocus();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void QuickCreatePanelView::refreshTypes() {
    types_->clear();
    for (const auto category : allFileTypeCategories) {
        for (const auto& type : controller_.types(category)) {
            addType(type);
        }
    }
    types_->setCurrentRow(0);
}

void QuickCreatePanelView::addType(const FileTypeDefinition& type) {
    auto* const item = new QListWidgetItem(symbolIcon_(type.sfSymbolName),
                                           qt(type.displayName) + "  ." + qt(type.fileExtension));
    item->setData(Qt::UserRole, qt(type.id));
    types_->addItem(item); // which owns it now
}

void QuickCreatePanelView::refreshStatus() {
    status_->setText(qt(controller_.statusMessage.get().value_or("")));
}

void QuickCreatePanelView::create(const QListWidgetItem* item) {
    const auto id = item->data(Qt::UserRole).toString().toStdString();
    controller_.create(*FileTypeCatalog::definition(id), DestinationChoice::panel);
}

void QuickCreatePanelView::createFirst() {
    if (const auto* const item = types_->currentItem()) {
        create(item);
    }
}

} // namespace blankwell
