#pragma once

#include "platform/StatusBar.h"
#include "platform/qt/QtMenu.h"

#include <QMenu>
#include <QSystemTrayIcon>

#include <memory>

namespace blankwell {

class MainQueue;
class QtStatusBar;

/// An item of the status bar, which is there while a bar is.
class QtStatusItem : public StatusItem {
public:
    /// All must outlive this object.
    QtStatusItem(QtStatusBar& bar, MainQueue& mainQueue, const SymbolIcons& symbolIcons,
                 StatusItemConfiguration configuration);
    ~QtStatusItem() override;

    void setMenu(ActionMenu menu) override;

    /// Puts the item into the bar that there is now.
    void appear();

    /// Takes it back from a bar that is gone.
    void disappear();

    /// Draws all images in the colour that texts have now.
    void redraw();

private:
    QtStatusBar& bar_;
    MainQueue& mainQueue_;
    const SymbolIcons& symbolIcons_;
    StatusItemConfiguration configuration_;
    ActionMenu items_;
    QMenu menu_;
    std::unique_ptr<QSystemTrayIcon> icon_;
};

} // namespace blankwell
