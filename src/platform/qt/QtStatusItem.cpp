#include "platform/qt/QtStatusItem.h"

#include "platform/qt/QtStatusBar.h"
#include "platform/qt/QtText.h"
#include "platform/qt/TemplateIcon.h"

#include <QCursor>

#include <utility>

namespace blankwell {

QtStatusItem::QtStatusItem(QtStatusBar& bar, MainQueue& mainQueue, const SymbolIcons& symbolIcons,
                           StatusItemConfiguration configuration)
    : bar_(bar),
      mainQueue_(mainQueue),
      symbolIcons_(symbolIcons),
      configuration_(std::move(configuration)) {}

QtStatusItem::~QtStatusItem() {
    bar_.remove(*this);
}

void QtStatusItem::setMenu(ActionMenu menu) {
    items_ = std::move(menu);
    // The menu that the bar knows stays the same: bars do not hear of another one.
    fillMenu(menu_, items_, mainQueue_, symbolIcons_);
}

void QtStatusItem::appear() {
    icon_ = std::make_unique<QSystemTrayIcon>(drawnIcon(configuration_.image));
    icon_->setToolTip(qtText(configuration_.toolTip));
    icon_->setContextMenu(&menu_);
    QObject::connect(icon_.get(), &QSystemTrayIcon::activated, &menu_,
                     [this](QSystemTrayIcon::ActivationReason reason) {
                         if (reason == QSystemTrayIcon::Trigger) {
                             menu_.popup(QCursor::pos());
                         }
                     });
    icon_->show();
}

void QtStatusItem::disappear() {
    icon_.reset();
}

void QtStatusItem::redraw() {
    fillMenu(menu_, items_, mainQueue_, symbolIcons_);
    if (icon_) {
        icon_->setIcon(drawnIcon(configuration_.image));
    }
}

} // namespace blankwell
