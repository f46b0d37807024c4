#include "updates/UpdateView.h"

#include "widgets/Heading.h"
#include "widgets/Metrics.h"
#include "widgets/ProgressBar.h"
#include "widgets/PushButton.h"
#include "widgets/QtStrings.h"
#include "widgets/ScrollArea.h"
#include "widgets/Switch.h"
#include "widgets/TextLabel.h"

#include <QEvent>
#include <QFontMetrics>
#include <QVBoxLayout>

#include <algorithm>
#include <ranges>
#include <utility>

namespace blankwell {
namespace {

/// The page's width in lines of text, so that it grows with the font.
constexpr int widthInLines = 27;
constexpr int greatestNotesHeight = 160;

bool differsInProgressOnly(const UpdatePage& page, UpdatePage other) {
    if (!page.progress || !other.progress) {
        return false;
    }
    other.progress = page.progress;
    return page == other;
}

} // namespace

UpdateView::UpdateView(const Theme& theme, QWidget* parent) : QWidget(parent), theme_(theme) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSizeConstraint(QLayout::SetFixedSize); // as lines wrap, also with another font
}

void UpdateView::show(const UpdatePage& page, bool checksAutomatically) {
    const bool isSamePage = content_ != nullptr && differsInProgressOnly(page, page_);
    page_ = page;
    if (!isSamePage) {
        build(checksAutomatically);
    }
    showProgress();
}

void UpdateView::build(bool checksAutomatically) {
    if (content_ != nullptr) {
        content_->hide();
        content_->deleteLater(); // a button of it may be what led here
    }
    notes_ = nullptr;
    bar_ = nullptr;
    amount_ = nullptr;
    linkNotice_ = nullptr;
    content_ = new QWidget;
    auto* const lines = new QVBoxLayout(content_);
    lines->setContentsMargins(metrics::mainWindowMargin, metrics::panelMargin,
                              metrics::mainWindowMargin, metrics::panelMargin);
    lines->setSpacing(2 * metrics::grid);
    addTexts(*lines);
    addNotes(*lines);
    addNotesLink(*lines);
    addProgress(*lines);
    addAutomaticChecks(*lines, checksAutomatically);
    addButtons(*lines);
    takeSize();
    layout()->addWidget(content_);
    first_->setFocus(Qt::TabFocusReason); // once it is in the window whose keyboard it gets
}

void UpdateView::addTexts(QVBoxLayout& lines) {
    lines.addWidget(
        new Heading(theme_, page_.title,
                    {.style = TextStyle::headline, .overflow = TextLabel::Overflow::wrap}));
    if (!page_.text.empty()) {
        lines.addWidget(new TextLabel(theme_, page_.text, {.overflow = TextLabel::Overflow::wrap}));
    }
}

/// A label for each line, since a label has none of its own.
QWidget* UpdateView::notesOf(std::string_view notes) {
    auto* const text = new QWidget;
    auto* const lines = new QVBoxLayout(text);
    lines->setContentsMargins({});
    lines->setSpacing(metrics::grid);
    while (!notes.empty()) {
        const auto line = notes.substr(0, notes.find('\n'));
        lines->addWidget(new TextLabel(theme_, line,
                                       {.style = TextStyle::callout,
                                        .color = ColorRole::secondaryLabel,
                                        .overflow = TextLabel::Overflow::wrap}));
        notes.remove_prefix(std::min(line.size() + 1, notes.size()));
    }
    lines->addStretch();
    return text;
}

void UpdateView::addNotes(QVBoxLayout& lines) {
    if (page_.notes.empty()) {
        return;
    }
    auto* const area = new ScrollArea(theme_);
    area->setWidget(notesOf(page_.notes));
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::TabFocus); // so that keys can scroll it
    area->setAccessibleName(qString(updateNotesTitle));
    lines.addSpacing(metrics::grid);
    lines.addWidget(area);
    notes_ = area;
}

void UpdateView::addNotesLink(QVBoxLayout& lines) {
    if (!page_.notesLink) {
        return;
    }
    const auto& link = *page_.notesLink;
    auto* const button = new PushButton(theme_, link.title);
    button->setToolTip(qString(link.url));
    button->setAccessibleDescription(qString(link.url));
    connect(button, &PushButton::clicked, this, [this, url = link.url] { emit linkPressed(url); });
    linkNotice_ = new TextLabel(theme_, "",
                                {.style = TextStyle::caption,
                                 .color = ColorRole::red,
                                 .overflow = TextLabel::Overflow::wrap});
    linkNotice_->hide();
    lines.addSpacing(metrics::grid);
    lines.addWidget(button, 0, Qt::AlignLeading);
    lines.addWidget(linkNotice_);
}

void UpdateView::tellOfUnopenedLink() {
    if (linkNotice_ != nullptr) {
        linkNotice_->setText(unopenedLinkText(page_.notesLink->url));
        linkNotice_->show();
    }
}

void UpdateView::addProgress(QVBoxLayout& lines) {
    if (!page_.progress) {
        return;
    }
    bar_ = new ProgressBar(theme_);
    bar_->setAccessibleName(qString(page_.title));
    amount_ = new TextLabel(theme_, page_.progress->text,
                            {.style = TextStyle::caption, .color = ColorRole::secondaryLabel});
    lines.addWidget(bar_);
    lines.addWidget(amount_);
}

void UpdateView::addAutomaticChecks(QVBoxLayout& lines, bool checksAutomatically) {
    if (!page_.offersAutomaticChecks) {
        return;
    }
    auto* const toggle = new Switch(theme_, automaticChecksTitle);
    toggle->setChecked(checksAutomatically);
    connect(toggle, &Switch::toggled, this, &UpdateView::checksAutomaticallyChanged);
    auto* const row = new QHBoxLayout;
    row->setSpacing(2 * metrics::grid);
    row->addSpacing(-Switch::ringMargin); // what is seen of it stands in line
    row->addWidget(toggle);
    row->addWidget(
        new TextLabel(theme_, automaticChecksTitle,
                      {.style = TextStyle::callout, .overflow = TextLabel::Overflow::wrap}),
        1);
    lines.addSpacing(metrics::grid);
    lines.addLayout(row);
}

/// The default button stands at the end, as the eye comes to it last.
void UpdateView::addButtons(QVBoxLayout& lines) {
    auto* const row = new QHBoxLayout;
    row->setSpacing(2 * metrics::grid);
    row->addStretch();
    for (const auto& button : std::views::reverse(page_.buttons)) {
        auto* const widget = new PushButton(
            theme_, button.title,
            button.isDefault ? PushButton::Kind::accent : PushButton::Kind::plain, content_);
        connect(widget, &PushButton::clicked, this,
                [this, answer = button.answer] { emit answered(answer); });
        row->addWidget(widget);
        if (button.isDefault || page_.buttons.size() == 1) {
            first_ = widget;
        }
    }
    lines.addSpacing(2 * metrics::grid);
    lines.addLayout(row);
}

/// Notes have the room that they need, up to a height from which they scroll.
void UpdateView::takeSize() {
    const int width = widthInLines * QFontMetrics(fontOf(TextStyle::body)).height();
    content_->setFixedWidth(width);
    if (notes_ != nullptr) {
        const int room = width - 2 * metrics::mainWindowMargin - ScrollArea::barWidth;
        notes_->setFixedHeight(
            std::clamp(notes_->widget()->layout()->totalHeightForWidth(room),
                       std::min(notes_->minimumSizeHint().height(), greatestNotesHeight),
                       greatestNotesHeight));
    }
}

void UpdateView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange && content_ != nullptr) {
        takeSize();
    }
}

void UpdateView::showProgress() {
    if (bar_ == nullptr) {
        return;
    }
    constexpr int steps = 1000;
    const auto& fraction = page_.progress->fraction;
    bar_->setRange(0, fraction ? steps : 0); // an empty range is drawn as time that is not known
    bar_->setValue(fraction ? static_cast<int>(*fraction * steps) : 0);
    amount_->setText(page_.progress->text);
    amount_->setVisible(!page_.progress->text.empty());
}

} // namespace blankwell
