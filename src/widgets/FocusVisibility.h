#pragma once

#include <QObject>

class QWidget;

namespace blankwell {

/// Whether `control` has the keyboard in a window that shows where that is.
[[nodiscard]] bool showsFocus(const QWidget& control);

/// Has the application's windows show where the keyboard is while the user works by keys: from the
/// first key that is pressed in a window until the pointer is pressed there or the window is
/// hidden. So a window that is opened by the pointer has no control that stands out.
class FocusVisibility : public QObject {
    Q_OBJECT

public:
    /// The application must exist, and outlive this object.
    FocusVisibility();

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace blankwell
