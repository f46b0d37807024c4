#pragma once

#include <QWidget>

namespace blankwell {

class Theme;

/// The number of a step, in a disc.
class NumberBadge : public QWidget {
    Q_OBJECT

public:
    NumberBadge(const Theme& theme, int number, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Theme& theme_;
    QString text_;
};

} // namespace blankwell
