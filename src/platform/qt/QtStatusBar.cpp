#include "platform/qt/QtStatusBar.h"

#include "platform/qt/QtStatusItem.h"

#include <QCoreApplication>
#include <QEvent>

#include <utility>

namespace blankwell {

QtStatusBar::QtStatusBar(MainQueue& mainQueue, Log& log, SymbolIcons symbolIcons,
                         std::function<void()> barIsMissing,
                         std::chrono::milliseconds patienceForBar)
    : mainQueue_(mainQueue),
      symbolIcons_(std::move(symbolIcons)),
      logger_(log, "StatusItem"),
      barIsMissing_(std::move(barIsMissing)),
      host_([this] { update(); }) {
    waiting_.setSingleShot(true);
    waiting_.setInterval(patienceForBar);
    connect(&waiting_, &QTimer::timeout, this, &QtStatusBar::missBar);
    qApp->installEventFilter(this);
}

std::unique_ptr<StatusItem> QtStatusBar::makeItem(const StatusItemConfiguration& configuration) {
    auto item = std::make_unique<QtStatusItem>(*this, mainQueue_, symbolIcons_, configuration);
    items_.push_back(item.get());
    if (host_.isPresent()) {
        item->appear();
    } else {
        waiting_.start();
    }
    return item;
}

bool QtStatusBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange && watched == qApp) {
        for (auto* const item : items_) {
            item->redraw();
        }
    }
    return false;
}

void QtStatusBar::update() {
    for (auto* const item : items_) {
        // A bar that takes the place of another knows nothing of the item.
        item->disappear();
        if (host_.isPresent()) {
            item->appear();
        }
    }
    if (host_.isPresent()) {
        waiting_.stop();
    } else if (!items_.empty()) {
        waiting_.start();
    }
}

void QtStatusBar::remove(QtStatusItem& item) {
    std::erase(items_, &item);
    if (items_.empty()) {
        waiting_.stop();
    }
}

void QtStatusBar::missBar() {
    if (!std::exchange(missingIsLogged_, true)) {
        logger_.error("The desktop shows no status items");
    }
    barIsMissing_();
}

} // namespace blankwell
