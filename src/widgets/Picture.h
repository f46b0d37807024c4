#pragma once

#include "widgets/Colors.h"
#include "widgets/Typography.h"

#include <QWidget>

#include <string_view>

class QPainter;

namespace blankwell {

class Theme;

/// A drawing that cannot be clicked. It grows with the desktop's font, and stands mirrored where
/// texts run from right to left.
class Picture : public QWidget {
    Q_OBJECT

public:
    [[nodiscard]] QSize sizeHint() const override;

protected:
    /// `size` is that at the font size that the lengths of `Metrics` suit; `draw` draws in
    /// coordinates of it. Screen readers read `description`.
    Picture(const Theme& theme, QSize size, const QString& description, QWidget* parent);

    virtual void draw(QPainter& painter) const = 0;

    /// A place that is named by its distance from the leading edge.
    [[nodiscard]] QRectF place(double leading, double top, double width, double height) const;

    [[nodiscard]] QColor color(ColorRole role, double opacity = 1) const;

    void drawSymbol(QPainter& painter, std::string_view name, const QRectF& where,
                    const QColor& color) const;

    struct Line {
        TextStyle style = TextStyle::callout;
        QColor color;
        Qt::Alignment alignment = Qt::AlignLeading;
    };

    /// Draws one line in the middle of the height of `where`, with an ellipsis where it is too
    /// long.
    void drawLine(QPainter& painter, std::string_view text, const QRectF& where,
                  const Line& line) const;

    void paintEvent(QPaintEvent* event) final;

private:
    const Theme& theme_;
    QSize size_;
};

} // namespace blankwell
