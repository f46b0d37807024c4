#pragma once

#include <QPushButton>

#include <string_view>

namespace blankwell {

class Theme;

/// A button with a title. Takes the keyboard by Tab, not by a click.
class PushButton : public QPushButton {
    Q_OBJECT

public:
    enum class Kind {
        plain,
        /// The one that most people want.
        accent,
    };

    PushButton(const Theme& theme, std::string_view title, Kind kind = Kind::plain,
               QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QColor fill() const;

    const Theme& theme_;
    Kind kind_;
};

} // namespace blankwell
