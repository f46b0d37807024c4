#pragma once

#include "platform/QuickCreatePanelWindow.h"

#include <memory>

class QWidget;

namespace blankwell {

class QtApplication;

/// The panel as a frameless window that the window manager knows: above the others, on every
/// desktop, in no task bar, moved by its background.
class QtQuickCreatePanelWindow : public QuickCreatePanelWindow {
public:
    /// Makes the window and draws it once, hidden, so that showing it is fast. `content` fills it
    /// and gets the keyboard; a window without a title bar has its rounded
    /// corners. `application` must outlive this object.
    QtQuickCreatePanelWindow(const QuickCreatePanelConfiguration& configuration,
                             std::unique_ptr<QWidget> content, int cornerRadius,
                             QtApplication& application);
    ~QtQuickCreatePanelWindow() override;

    [[nodiscard]] Rect frame() const override;
    void setFrame(const Rect& frame) override;
    void makeKeyAndOrderFront() override;
    void orderOut() override;
    [[nodiscard]] bool isVisible() const override;

    /// The window itself, for who tests it.
    [[nodiscard]] QWidget& widget() const { return *window_; }

private:
    std::unique_ptr<QWidget> window_;
    QWidget* content_;
    QtApplication& application_;
};

} // namespace blankwell
