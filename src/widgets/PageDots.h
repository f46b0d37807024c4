#pragma once

#include <QWidget>

namespace blankwell {

class Theme;

/// A dot for each page of a sequence, of which that of the page shown stands out. Screen readers
/// read which page that is, and hear when it changes.
class PageDots : public QWidget {
    Q_OBJECT

public:
    /// The first of `count` pages is shown.
    PageDots(const Theme& theme, int count, QWidget* parent = nullptr);

    /// Shows that the page `index`, from 0, is shown.
    void setPage(int index);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Theme& theme_;
    int count_;
    int page_ = 0;
};

} // namespace blankwell
