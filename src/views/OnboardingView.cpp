#include "views/OnboardingView.h"

#include "settings/AppSettings.h"
#include "views/OnboardingPageView.h"
#include "widgets/Keys.h"
#include "widgets/Metrics.h"
#include "widgets/PageDots.h"
#include "widgets/PageTurn.h"
#include "widgets/PushButton.h"
#include "widgets/QtStrings.h"
#include "widgets/ScrollArea.h"
#include "widgets/Separator.h"
#include "widgets/Theme.h"

#include <QCoreApplication>
#include <QScreen>
#include <QScrollBar>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace blankwell {
namespace {

constexpr QSize sheetSize(560, 520);

/// What stays free of the screen around a sheet that would be larger.
constexpr int screenMargin = 80;

bool isPrimary(OnboardingButton button) {
    return button == OnboardingButton::next || button == OnboardingButton::getStarted;
}

} // namespace

OnboardingView::OnboardingView(const Theme& theme, AppSettings& settings, QWidget* parent)
    : QDialog(parent),
      theme_(theme),
      model_(settings),
      area_(new ScrollArea(theme)),
      pages_(new QStackedWidget),
      dots_(new PageDots(theme, static_cast<int>(OnboardingModel::pageCount))) {
    setWindowModality(Qt::WindowModal);
    layOut();
    subscriptions_.push_back(settings.quickCreateShortcut.observe(
        [this](const auto& shortcut) { showPages(shortcut.displayString()); }));
    subscriptions_.push_back(
        settings.hasCompletedOnboarding.observeChanges([this](bool hasCompleted) {
            if (hasCompleted) {
                accept();
            }
        }));
    setWindowTitle(qString(model_.pages().front().title));
    refresh();
}

void OnboardingView::layOut() {
    area_->setWidget(pages_);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(area_, 1);
    column->addWidget(new Separator(theme_));
    addFooter(*column);
    turn_ = new PageTurn(theme_, *area_);
}

void OnboardingView::addFooter(QBoxLayout& column) {
    using enum OnboardingButton;
    for (const auto button : {back, skip, next, getStarted}) {
        const auto kind = isPrimary(button) ? PushButton::Kind::accent : PushButton::Kind::plain;
        auto* const control = new PushButton(theme_, title(button), kind);
        connect(control, &PushButton::clicked, this, [this, button] { press(button); });
        control->installEventFilter(this);
        buttons_[button] = control;
    }
    auto* const row = new QHBoxLayout;
    row->setContentsMargins(metrics::panelMargin, metrics::symbolGap, metrics::panelMargin,
                            metrics::symbolGap);
    row->setSpacing(2 * metrics::grid);
    row->addWidget(buttons_.at(back));
    row->addStretch();
    row->addWidget(dots_);
    row->addSpacing(4 * metrics::grid);
    for (const auto button : {skip, next, getStarted}) {
        row->addWidget(buttons_.at(button));
    }
    column.addLayout(row);
}

void OnboardingView::showPages(std::string_view shortcut) {
    const auto contents = onboardingPages(shortcut);
    for (std::size_t i = 0; i < contents.size(); ++i) {
        const auto index = static_cast<int>(i);
        auto* const before = static_cast<OnboardingPageView*>(pages_->widget(index));
        if (before != nullptr && before->page() == contents[i]) {
            continue;
        }
        pages_->insertWidget(index, new OnboardingPageView(theme_, contents[i]));
        delete before;
    }
    pages_->setCurrentIndex(static_cast<int>(model_.page()));
}

void OnboardingView::press(OnboardingButton button) {
    const auto before = model_.page();
    model_.press(button);
    if (model_.page() == before) {
        return;
    }
    if (!isVisible()) {
        refresh();
        return;
    }
    turn_->turn(model_.page() > before ? PageTurn::Direction::forward : PageTurn::Direction::back,
                [this] { refresh(); });
}

void OnboardingView::refresh() {
    const auto offered = model_.buttons();
    const auto page = static_cast<int>(model_.page());
    const auto* const focused = focusWidget();
    dots_->setPage(page);
    pages_->setCurrentIndex(page);
    area_->verticalScrollBar()->setValue(0);
    const auto& content = static_cast<OnboardingPageView*>(pages_->currentWidget())->page();
    for (const auto& [button, control] : buttons_) {
        // The one that has the keyboard is read again when this changes.
        control->setAccessibleDescription(dots_->accessibleName() + ": " + qString(content.title));
        control->setVisible(std::ranges::find(offered, button) != offered.end());
    }
    if (focused != nullptr && !focused->isVisibleTo(this)) {
        primaryButton().setFocus();
    }
}

PushButton& OnboardingView::primaryButton() const {
    const auto offered = model_.buttons();
    return *buttons_.at(*std::ranges::find_if(offered, isPrimary));
}

QSize OnboardingView::sizeHint() const {
    const int pageWidth = pages_->minimumSizeHint().width() + ScrollArea::barWidth;
    const int width = std::max({sheetSize.width(), pageWidth, layout()->minimumSize().width()});
    const int pageHeight = pages_->layout()->totalHeightForWidth(width - ScrollArea::barWidth);
    const int footerHeight = layout()->sizeHint().height() - area_->sizeHint().height();
    const QSize wanted(width, std::max(sheetSize.height(), pageHeight + footerHeight));
    return wanted.boundedTo(screen()->availableSize() - QSize(0, screenMargin));
}

void OnboardingView::showEvent(QShowEvent* event) {
    resize(sizeHint());
    primaryButton().setFocus();
    QDialog::showEvent(event);
}

void OnboardingView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange && isVisible()) {
        QMetaObject::invokeMethod(this, &OnboardingView::takeNewSize, Qt::QueuedConnection);
    }
    QDialog::changeEvent(event);
}

void OnboardingView::takeNewSize() {
    // Those of pages that are not shown would not follow by themselves.
    for (auto* const layout : pages_->findChildren<QLayout*>()) {
        layout->invalidate();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    resize(sizeHint());
}

void OnboardingView::keyPressEvent(QKeyEvent* event) {
    if (isReturn(*event)) {
        primaryButton().click();
    } else if (!turnsOrScrolls(*event)) {
        QDialog::keyPressEvent(event);
    }
}

bool OnboardingView::eventFilter(QObject* watched, QEvent* event) {
    // With these keys buttons would pass the keyboard on to each other.
    return (event->type() == QEvent::KeyPress && turnsOrScrolls(*static_cast<QKeyEvent*>(event))) ||
           QDialog::eventFilter(watched, event);
}

/// Does what the keys do that move through the pages; false where `event` is of another.
bool OnboardingView::turnsOrScrolls(QKeyEvent& event) {
    const auto forward = isRightToLeft() ? Qt::Key_Left : Qt::Key_Right;
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        press(event.key() == forward ? OnboardingButton::next : OnboardingButton::back);
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QCoreApplication::sendEvent(area_->verticalScrollBar(), &event);
        return true;
    default:
        return false;
    }
}

} // namespace blankwell
