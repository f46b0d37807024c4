#pragma once

#include "widgets/Glide.h"

#include <QAbstractButton>

#include <string>
#include <string_view>

namespace blankwell {

class Theme;

/// The line of a disclosure that is always seen: a chevron, a symbol and the title. It is checked
/// while the content is shown; screen readers hear "expanded" or "collapsed".
class DisclosureHeader : public QAbstractButton {
    Q_OBJECT

public:
    /// `symbol` may be empty.
    DisclosureHeader(const Theme& theme, std::string_view title, std::string_view symbol,
                     QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    const Theme& theme_;
    QString title_;
    std::string symbol_;
    Glide turn_;
};

} // namespace blankwell
