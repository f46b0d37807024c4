#pragma once

#include <QWidget>

namespace blankwell {

class Theme;

/// A thin line between what is above and what is below it.
class Separator : public QWidget {
    Q_OBJECT

public:
    explicit Separator(const Theme& theme, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Theme& theme_;
};

} // namespace blankwell
