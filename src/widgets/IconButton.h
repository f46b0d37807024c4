#pragma once

#include "widgets/Colors.h"

#include <QPushButton>

#include <string>
#include <string_view>

namespace blankwell {

class Theme;

/// A button that shows a symbol and no text. Its help text is also its name for screen readers.
/// Takes the keyboard by Tab, not by a click.
class IconButton : public QPushButton {
    Q_OBJECT

public:
    struct Look {
        std::string_view symbol;
        std::string_view help;
        int symbolSize = 16;
        ColorRole color = ColorRole::secondaryLabel;
    };

    IconButton(const Theme& theme, const Look& look, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    const Theme& theme_;
    std::string symbol_;
    int symbolSize_;
    ColorRole color_;
};

} // namespace blankwell
