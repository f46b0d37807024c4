#pragma once

#include "base/Subscription.h"

#include <QIcon>
#include <QWidget>

#include <functional>
#include <string_view>
#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;

namespace blankwell {

class DesktopCreationController;
class MainQueue;
struct FileTypeDefinition;

/// The content of the Quick Create panel: a search field and the types that it finds. Choosing a
/// type creates a file of it, Escape closes the panel.
class QuickCreatePanelView : public QWidget {
public:
    /// The icon of a symbol by its name.
    using SymbolIcon = std::function<QIcon(std::string_view)>;

    /// Shows the state of `controller`, which must outlive this object as `mainQueue` must.
    QuickCreatePanelView(DesktopCreationController& controller, MainQueue& mainQueue,
                         SymbolIcon symbolIcon);

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void layOut();
    void connectControls();
    void follow(MainQueue& mainQueue);
    void refreshTypes();
    void refreshStatus();
    void addType(const FileTypeDefinition& type);
    void create(const QListWidgetItem* item);
    void createFirst();

    DesktopCreationController& controller_;
    SymbolIcon symbolIcon_;
    QLineEdit* search_;
    QListWidget* types_;
    QLabel* status_;
    std::vector<Subscription> subscriptions_;
};

} // namespace blankwell
