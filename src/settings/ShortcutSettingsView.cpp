#include "settings/ShortcutSettingsView.h"

#include "platform/ObserveLater.h"
#include "settings/AppSettings.h"
#include "settings/DirectFileShortcutRow.h"
#include "settings/ShortcutRecorderView.h"
#include "widgets/Disclosure.h"
#include "widgets/DisclosureHeader.h"
#include "widgets/Heading.h"
#include "widgets/IconButton.h"
#include "widgets/Metrics.h"
#include "widgets/SegmentedControl.h"
#include "widgets/Separator.h"
#include "widgets/SymbolLabel.h"
#include "widgets/TextLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace blankwell {
namespace {

constexpr auto& texts = shortcutSettingsTexts;

constexpr int spacing = 12;
constexpr int quickCreateSymbolSize = 22;
constexpr int quickCreateSymbolColumn = 28;
constexpr QSize recorderSize(230, 32);
constexpr int destinationWidth = 240;

/// A line of controls that stand where texts begin.
QHBoxLayout* leadingRow(QWidget& row) {
    auto* const layout = new QHBoxLayout(&row);
    layout->setContentsMargins({});
    layout->setSpacing(spacing);
    return layout;
}

std::vector<SegmentedControl::Title> destinationTitles() {
    std::vector<SegmentedControl::Title> titles;
    titles.reserve(destinationSegments.size());
    for (const auto& segment : destinationSegments) {
        titles.push_back(
            {.text = std::string(segment.title), .symbol = std::string(segment.symbol)});
    }
    return titles;
}

int indexOf(CreationDestinationMode mode) {
    const auto* const segment =
        std::ranges::find(destinationSegments, mode, &DestinationSegment::mode);
    return static_cast<int>(segment - destinationSegments.begin());
}

} // namespace

ShortcutSettingsView::ShortcutSettingsView(const Theme& theme, const Services& services,
                                           QWidget* parent)
    : QWidget(parent),
      theme_(theme),
      hotKeyFailures_(services.hotKeyFailures),
      model_(services.settings) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(spacing);
    layout->addLayout(makeHeader());
    layout->addWidget(makeQuickCreateRow(services.recorders));
    layout->addWidget(makeDestinationRow());
    layout->addWidget(new Separator(theme));
    layout->addWidget(makeDirectShortcuts(services.recorders));
    refresh();
    settingsChanges_ = observeLater(services.settings.objectWillChange(), services.mainQueue,
                                    [this] { refresh(); });
    failureChanges_ = observeLater(services.hotKeyFailures, services.mainQueue,
                                   [this](const auto&) { refresh(); });
}

bool ShortcutSettingsView::showsDirectShortcuts() const {
    return directShortcuts_->isExpanded();
}

void ShortcutSettingsView::setShowsDirectShortcuts(bool shows) {
    directShortcuts_->setExpanded(shows);
}

QVBoxLayout* ShortcutSettingsView::makeHeader() {
    warning_ = new TextLabel(theme_, "",
                             {.style = TextStyle::caption,
                              .color = ColorRole::red,
                              .overflow = TextLabel::Overflow::elideEnd});
    auto* const header = new QVBoxLayout;
    header->setSpacing(2);
    header->addWidget(new Heading(theme_, texts.quickCreateTitle, {.style = TextStyle::headline}));
    header->addWidget(warning_);
    return header;
}

QWidget* ShortcutSettingsView::makeQuickCreateRow(const ShortcutRecorderServices& recorders) {
    quickCreate_ = new ShortcutRecorderView(
        theme_, texts.quickCreateTitle, recorders,
        {.get = [this] { return model_.quickCreateShortcut(); },
         .set = [this](const auto& shortcut) { model_.setQuickCreateShortcut(shortcut); }});
    quickCreate_->setUsualSize(recorderSize);
    auto* const reset =
        new IconButton(theme_, {.symbol = texts.resetSymbol, .help = texts.resetHelp});
    connect(reset, &QPushButton::clicked, this, [this] { model_.resetQuickCreateShortcut(); });

    auto* const row = new QWidget;
    auto* const layout = leadingRow(*row);
    layout->addWidget(
        new SymbolLabel(theme_, texts.quickCreateSymbol,
                        {.size = quickCreateSymbolSize, .columnWidth = quickCreateSymbolColumn}));
    layout->addWidget(quickCreate_);
    layout->addWidget(reset);
    layout->addStretch();
    return row;
}

QWidget* ShortcutSettingsView::makeDestinationRow() {
    destination_ = new SegmentedControl(theme_, texts.destinationLabel, destinationTitles());
    destination_->setMinimumWidth(destinationWidth);
    connect(destination_, &SegmentedControl::selectedByUser, this, [this](int index) {
        model_.setDestination(destinationSegments.at(static_cast<std::size_t>(index)).mode);
    });

    auto* const row = new QWidget;
    auto* const layout = leadingRow(*row);
    layout->addWidget(new TextLabel(theme_, texts.destinationLabel, {.style = TextStyle::callout}));
    layout->addWidget(destination_);
    layout->addStretch();
    return row;
}

Disclosure* ShortcutSettingsView::makeDirectShortcuts(const ShortcutRecorderServices& recorders) {
    directShortcuts_ =
        new Disclosure(theme_, texts.directShortcutsTitle, texts.directShortcutsSymbol);
    rowsLayout_ = new QVBoxLayout;
    rowsLayout_->setContentsMargins(0, metrics::grid, 0, 0);
    rowsLayout_->setSpacing(spacing);
    for (const auto& content : model_.rows(hotKeyFailures_.get())) {
        rows_.push_back(new DirectFileShortcutRow(theme_, model_, recorders, content));
        rowsLayout_->addWidget(rows_.back());
    }
    directShortcuts_->content().addWidget(new Separator(theme_));
    directShortcuts_->content().addLayout(rowsLayout_);
    return directShortcuts_;
}

void ShortcutSettingsView::refresh() {
    const auto& failures = hotKeyFailures_.get();
    const auto warning = model_.quickCreateWarning(failures);
    warning_->setVisible(warning.has_value());
    warning_->setText(warning ? warning->text : "");
    quickCreate_->readBinding();
    destination_->select(indexOf(model_.destination()));
    const auto contents = model_.rows(failures);
    arrange(contents);
    for (std::size_t i = 0; i < contents.size(); ++i) {
        rows_.at(i)->show(contents[i]);
    }
}

/// Brings the rows into the order of `contents`, which is of the same types.
void ShortcutSettingsView::arrange(const std::vector<DirectShortcutRowContent>& contents) {
    if (std::ranges::equal(rows_, contents, {}, &DirectFileShortcutRow::fileTypeID,
                           &DirectShortcutRowContent::fileTypeID)) {
        return;
    }
    QWidget* previous = directShortcuts_->findChild<DisclosureHeader*>();
    auto next = rows_.begin();
    for (const auto& content : contents) {
        const auto row = std::ranges::find(next, rows_.end(), content.fileTypeID,
                                           &DirectFileShortcutRow::fileTypeID);
        std::rotate(next, row, row + 1);
        rowsLayout_->removeWidget(*next);
        rowsLayout_->addWidget(*next);
        (*next)->raise(); // so that screen readers come to them in this order
        previous = &(*next)->placeInTabOrder(*previous);
        ++next;
    }
}

} // namespace blankwell
