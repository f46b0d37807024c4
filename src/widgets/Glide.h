#pragma once

#include <QVariantAnimation>

class QWidget;

namespace blankwell {

class Theme;

/// A number that moves to its goal in the theme's time and has its widget repainted on the way. It
/// is there at once where nothing should move, or nobody sees the widget.
class Glide {
public:
    /// Both must outlive this object.
    Glide(const Theme& theme, QWidget& widget, double start);

    [[nodiscard]] double value() const { return value_; }

    void moveTo(double goal);

    /// Moves there at once.
    void jumpTo(double goal);

private:
    const Theme& theme_;
    QWidget& widget_;
    double value_;
    QVariantAnimation animation_;
};

} // namespace blankwell
