#pragma once

#include <QWidget>

namespace blankwell {

class Theme;

/// A line that shows where something that is dragged would be dropped. Hidden at first.
class DropIndicator : public QWidget {
    Q_OBJECT

public:
    DropIndicator(const Theme& theme, QWidget& list);

    /// Shows it across the list, on the edge between two rows at `y`.
    void showAt(int y);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Theme& theme_;
};

} // namespace blankwell
