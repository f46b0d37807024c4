#pragma once

#include "views/MainWindowLayout.h"

#include <QObject>
#include <QPropertyAnimation>

class QWidget;

namespace blankwell {

class Theme;

/// Makes a window as high as its content wants to be, as far as its screen has room for it, when
/// the user first comes to it.
class ActivatedWindowSize : public QObject {
    Q_OBJECT

public:
    /// `theme` and `window` must outlive this object.
    ActivatedWindowSize(const Theme& theme, QWidget& window);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void apply();
    void moveTo(const Rect& frame);

    const Theme& theme_;
    QWidget& window_;
    ActivationSizing sizing_;
    QPropertyAnimation animation_;
};

} // namespace blankwell
