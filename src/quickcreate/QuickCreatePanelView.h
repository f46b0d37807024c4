#pragma once

#include "base/Subscription.h"

#include <QWidget>

#include <vector>

class QBoxLayout;
class QLineEdit;

namespace blankwell {

class AppSettings;
class DesktopCreationController;
class MainQueue;
class QuickCreateFooterView;
class QuickCreateList;
class ScrollArea;
class SearchField;
class SegmentedControl;
class Theme;
struct FileTypeDefinition;

/// The content of the Quick Create panel: the destination, a search field, the tiles of the types
/// that it finds, and what came of the last creation.
///
/// The search field has the keyboard at each showing; letters typed elsewhere go there. Return in
/// it creates the first type shown. Nothing but Escape and the close button closes the panel.
class QuickCreatePanelView : public QWidget {
    Q_OBJECT

public:
    /// What the view uses. All must outlive it.
    struct Services {
        DesktopCreationController& controller;
        /// Whose types the controller offers.
        AppSettings& settings;
        MainQueue& mainQueue;
        const Theme& theme;
    };

    explicit QuickCreatePanelView(const Services& services);

protected:
    void showEvent(QShowEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void layOut();
    [[nodiscard]] QBoxLayout* makeHeader();
    void connectControls();
    void follow(AppSettings& settings, MainQueue& mainQueue);
    void refreshTypes();
    void refreshSearchText();
    void refreshDestination();
    void refreshFooter();
    void createFirst();
    void searchFor(const QKeyEvent& event);

    DesktopCreationController& controller_;
    const Theme& theme_;
    SegmentedControl* destination_;
    SearchField* search_;
    ScrollArea* scroll_;
    QuickCreateList* list_;
    QuickCreateFooterView* footer_;
    std::vector<Subscription> subscriptions_;
};

} // namespace blankwell
