#include "quickcreate/QuickCreatePanelView.h"

#include "platform/ObserveLater.h"
#include "quickcreate/DesktopCreationController.h"
#include "quickcreate/QuickCreateContents.h"
#include "quickcreate/QuickCreateFooterView.h"
#include "quickcreate/QuickCreateList.h"
#include "settings/AppSettings.h"
#include "widgets/Heading.h"
#include "widgets/IconButton.h"
#include "widgets/Metrics.h"
#include "widgets/Painting.h"
#include "widgets/QtStrings.h"
#include "widgets/ScrollArea.h"
#include "widgets/SearchField.h"
#include "widgets/SegmentedControl.h"
#include "widgets/Separator.h"
#include "widgets/Theme.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace blankwell {
namespace {

using metrics::panelMargin;

/// The width of the line around the panel, which nothing covers.
constexpr int outline = 1;

std::vector<SegmentedControl::Title> destinationTitles() {
    std::vector<SegmentedControl::Title> titles;
    for (const auto mode : allCreationDestinationModes) {
        const auto label = destinationLabel(mode);
        titles.push_back({.text = std::string(label.title), .symbol = std::string(label.symbol)});
    }
    return titles;
}

/// Whether the key press is of a text rather than of a command.
bool isTyped(const QKeyEvent& event) {
    constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return !event.text().isEmpty() && event.text().front().isPrint() &&
           (event.modifiers() & commands) == Qt::NoModifier;
}

} // namespace

QuickCreatePanelView::QuickCreatePanelView(const Services& services)
    : controller_(services.controller),
      theme_(services.theme),
      destination_(new SegmentedControl(services.theme, quick_create_texts::destination,
                                        destinationTitles())),
      search_(new SearchField(services.theme, quick_create_texts::searchPrompt)),
      scroll_(new ScrollArea(services.theme)),
      list_(new QuickCreateList(services.theme,
                                [this](const FileTypeDefinition& type) {
                                    controller_.create(type, DestinationChoice::panel);
                                })),
      footer_(new QuickCreateFooterView(services.theme)) {
    layOut();
    connectControls();
    follow(services.settings, services.mainQueue);
    refreshTypes();
    refreshSearchText();
    refreshDestination();
    refreshFooter();
}

QBoxLayout* QuickCreatePanelView::makeHeader() {
    auto* const close =
        new IconButton(theme_, {.symbol = "xmark.circle", .help = quick_create_texts::close});
    connect(close, &QPushButton::clicked, this, [this] { controller_.closeQuickCreatePanel(); });
    auto* const header = new QHBoxLayout;
    header->setContentsMargins(0, 4 * metrics::grid, 0, 0);
    header->setSpacing(2 * metrics::grid);
    header->addSpacing(panelMargin);
    header->addWidget(new Heading(theme_, quick_create_texts::title, {.style = TextStyle::title3}));
    header->addStretch();
    header->addWidget(destination_);
    header->addWidget(close);
    header->addSpacing(panelMargin - metrics::grid); // its symbol stands in line
    return header;
}

void QuickCreatePanelView::layOut() {
    constexpr int besideField = panelMargin - metrics::focusRing;
    auto* const field = new QHBoxLayout;
    field->setContentsMargins(besideField, 0, besideField, 0);
    field->addWidget(search_);

    auto* const inset = new QWidget;
    auto* const insetLayout = new QHBoxLayout(inset);
    insetLayout->setContentsMargins({});
    insetLayout->setSpacing(0);
    insetLayout->addSpacing(panelMargin - outline);
    insetLayout->addWidget(list_, 1, Qt::AlignTop);
    insetLayout->addSpacing(panelMargin - outline - ScrollArea::barWidth);
    scroll_->setWidget(inset);
    auto* const content = new QHBoxLayout;
    content->setContentsMargins(outline, 0, outline, 0);
    content->addWidget(scroll_);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addLayout(makeHeader());
    layout->addSpacing(3 * metrics::grid - metrics::focusRing);
    layout->addLayout(field);
    layout->addSpacing(2 * metrics::grid);
    layout->addLayout(content, 1);
    layout->addWidget(new Separator(theme_));
    layout->addWidget(footer_);
}

void QuickCreatePanelView::connectControls() {
    connect(&search_->edit(), &QLineEdit::textChanged, this,
            [this](const QString& text) { controller_.searchText.set(text.toStdString()); });
    connect(&search_->edit(), &QLineEdit::returnPressed, this, [this] { createFirst(); });
    connect(destination_, &SegmentedControl::selectedByUser, this, [this](int index) {
        controller_.destinationMode.set(
            allCreationDestinationModes.at(static_cast<std::size_t>(index)));
    });
    connect(list_, &QuickCreateList::tileFocused, this,
            [this](QWidget* tile) { scroll_->ensureWidgetVisible(tile, 0, 40); });
    connect(list_, &QuickCreateList::leftUpwards, this, [this] {
        search_->setFocus(Qt::BacktabFocusReason);
        scroll_->verticalScrollBar()->setValue(0);
    });
}

void QuickCreatePanelView::follow(AppSettings& settings, MainQueue& mainQueue) {
    const auto refreshAfter = [&](auto& property, void (QuickCreatePanelView::*refresh)()) {
        subscriptions_.push_back(observeLater(
            property, mainQueue, [this, refresh](const auto&) { (this->*refresh)(); }));
    };
    refreshAfter(controller_.searchText, &QuickCreatePanelView::refreshTypes);
    refreshAfter(controller_.searchText, &QuickCreatePanelView::refreshSearchText);
    refreshAfter(settings.enabledFileTypeIDs, &QuickCreatePanelView::refreshTypes);
    refreshAfter(settings.fileTypeOrder, &QuickCreatePanelView::refreshTypes);
    refreshAfter(controller_.destinationMode, &QuickCreatePanelView::refreshDestination);
    refreshAfter(controller_.destinationMode, &QuickCreatePanelView::refreshFooter);
    refreshAfter(controller_.statusMessage, &QuickCreatePanelView::refreshFooter);
}

void QuickCreatePanelView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous()) {
        refreshFooter(); // the Desktop may be another folder since
        search_->setFocus();
        search_->edit().selectAll(); // a new search replaces the last one
    }
}

// With a focus proxy, Tab would lead from the last tile to the field, past what stands above it.
void QuickCreatePanelView::focusInEvent(QFocusEvent* event) {
    search_->setFocus(event->reason());
}

void QuickCreatePanelView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        controller_.closeQuickCreatePanel();
    } else if (event->key() == Qt::Key_Down && search_->edit().hasFocus()) {
        list_->focusFirstTile();
    } else if (isTyped(*event)) {
        searchFor(*event);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void QuickCreatePanelView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawShape(painter, rect(),
              {.radius = metrics::panelRadius,
               .fill = Qt::transparent, // the palette has filled the window
               .outline = theme_.color(ColorRole::separator)});
}

void QuickCreatePanelView::refreshTypes() {
    list_->setSections(quickCreateSections(controller_));
}

void QuickCreatePanelView::refreshSearchText() {
    const auto text = qString(controller_.searchText.get());
    if (text != search_->edit().text()) {
        search_->edit().setText(text);
    }
}

void QuickCreatePanelView::refreshDestination() {
    const auto mode = controller_.destinationMode.get();
    const auto* const place = std::ranges::find(allCreationDestinationModes, mode);
    destination_->select(static_cast<int>(place - allCreationDestinationModes.begin()));
}

void QuickCreatePanelView::refreshFooter() {
    footer_->setFooter(quickCreateFooter(controller_));
}

void QuickCreatePanelView::createFirst() {
    if (const auto type = firstType(quickCreateSections(controller_))) {
        controller_.create(*type, DestinationChoice::panel);
    }
}

void QuickCreatePanelView::searchFor(const QKeyEvent& event) {
    search_->setFocus(Qt::OtherFocusReason); // which selects nothing
    search_->edit().insert(event.text());
}

} // namespace blankwell
