#pragma once

#include "base/Subscription.h"
#include "views/OnboardingModel.h"

#include <QDialog>

#include <map>
#include <string_view>
#include <vector>

class QBoxLayout;
class QStackedWidget;

namespace blankwell {

class AppSettings;
class PageDots;
class PageTurn;
class PushButton;
class ScrollArea;
class Theme;

/// The walkthrough, a sheet over the main window: `open` shows it.
///
/// It goes away by itself when the walkthrough is completed, here or elsewhere. Escape and the
/// window's close button put it away for now: it is not completed then, and goes on at the same
/// page when it is opened again. Return does what the accented button says, the arrow keys turn the
/// pages.
class OnboardingView : public QDialog {
    Q_OBJECT

public:
    /// `theme` and `settings` must outlive this object.
    OnboardingView(const Theme& theme, AppSettings& settings, QWidget* parent);

    /// As high as the highest page needs.
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void layOut();
    void addFooter(QBoxLayout& column);
    void showPages(std::string_view shortcut);
    void press(OnboardingButton button);
    void refresh();
    void takeNewSize();
    bool turnsOrScrolls(QKeyEvent& event);
    [[nodiscard]] PushButton& primaryButton() const;

    const Theme& theme_;
    OnboardingModel model_;
    ScrollArea* area_;
    QStackedWidget* pages_;
    PageTurn* turn_{};
    PageDots* dots_;
    std::map<OnboardingButton, PushButton*> buttons_;
    std::vector<Subscription> subscriptions_;
};

} // namespace blankwell
