#pragma once

#include "widgets/Glide.h"

#include <QCheckBox>

#include <string_view>

namespace blankwell {

class Theme;

/// A switch that is on or off. It shows no text: `name` is what screen readers call it. Space and
/// Return turn it; takes the keyboard by Tab, not by a click. `toggled` and `clicked` tell of
/// changes.
class Switch : public QCheckBox {
    Q_OBJECT

public:
    /// How much larger it is than what it shows, on each side, for the ring that shows the focus.
    static constexpr int ringMargin = 3;

    Switch(const Theme& theme, std::string_view name, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    [[nodiscard]] bool hitButton(const QPoint& place) const override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    const Theme& theme_;
    Glide knob_;
};

} // namespace blankwell
