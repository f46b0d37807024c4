#pragma once

#include <QRadioButton>

#include <string>
#include <string_view>

namespace blankwell {

class Theme;

/// One of the buttons of a segmented control, which draws the ground that it stands on.
class Segment : public QRadioButton {
    Q_OBJECT

public:
    /// `symbol` may be empty.
    Segment(const Theme& theme, std::string_view title, std::string_view symbol,
            QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    [[nodiscard]] bool hitButton(const QPoint& place) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] int contentWidth() const;

    const Theme& theme_;
    QString title_;
    std::string symbol_;
};

} // namespace blankwell
