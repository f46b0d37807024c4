#pragma once

#include "platform/Log.h"
#include "platform/StatusBar.h"
#include "platform/qt/QtMenu.h"
#include "platform/qt/StatusNotifierHost.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <vector>

namespace blankwell {

class MainQueue;
class QtStatusItem;

/// The status bar as the StatusNotifierItem protocol has it.
///
/// Items appear whenever a desktop shows such a bar: at once, or when it starts later, or again
/// when it starts anew.
///
/// Images follow the colour of the application's texts, since the protocol does not tell that of
/// the bar. Bars recolour icons only that they find by a symbolic name in an installed icon theme;
/// the application runs from any folder, and Qt names no folder of icons to them.
class QtStatusBar : public QObject, public StatusBar {
public:
    /// How long an item waits for a bar before the bar counts as missing: more than the programs of
    /// a session take to start one after the other.
    static constexpr std::chrono::milliseconds patience = std::chrono::seconds(5);

    /// `barIsMissing` is called each time an item has waited in vain. Commands of menus run from
    /// `mainQueue` and have the icons of `symbolIcons`. The ports must outlive this object, and
    /// this object its items.
    QtStatusBar(MainQueue& mainQueue, Log& log, SymbolIcons symbolIcons,
                std::function<void()> barIsMissing,
                std::chrono::milliseconds patienceForBar = patience);

    [[nodiscard]] std::unique_ptr<StatusItem>
    makeItem(const StatusItemConfiguration& configuration) override;

    /// Whether there is an item and a bar that shows it.
    [[nodiscard]] bool showsItem() const { return !items_.empty() && host_.isPresent(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    friend class QtStatusItem;

    void update();
    void remove(QtStatusItem& item);
    void missBar();

    MainQueue& mainQueue_;
    SymbolIcons symbolIcons_;
    Logger logger_;
    std::function<void()> barIsMissing_;
    bool missingIsLogged_ = false;
    QTimer waiting_;
    std::vector<QtStatusItem*> items_;
    StatusNotifierHost host_;
};

} // namespace blankwell
