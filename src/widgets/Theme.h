#pragma once

#include "base/Subscription.h"
#include "widgets/Colors.h"
#include "widgets/FocusVisibility.h"

#include <QColor>

#include <chrono>

namespace blankwell {

class Appearance;

/// The look of the application's windows, in step with that of the desktop.
///
/// It gives the application a palette, so that dialogs, menus and tool tips have the same colours.
/// A change of the palette makes Qt repaint every widget, so widgets that ask for colours when they
/// paint need nothing else to follow. Must outlive the widgets.
class Theme {
public:
    /// `appearance` must outlive this object.
    explicit Theme(Appearance& appearance);

    [[nodiscard]] QColor color(ColorRole role) const;

    /// The colour of a role, of which `opacity` (0 to 1) covers what is under it.
    [[nodiscard]] QColor color(ColorRole role, double opacity) const;

    [[nodiscard]] bool isDark() const;

    /// How long things take to move; zero where the desktop asks for less motion.
    [[nodiscard]] std::chrono::milliseconds motion() const;

private:
    void apply() const;

    Appearance& appearance_;
    Subscription changes_;
    FocusVisibility focusVisibility_;
};

} // namespace blankwell
