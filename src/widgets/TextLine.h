#pragma once

#include "widgets/Typography.h"

#include <QFont>
#include <QStaticText>
#include <QString>
#include <Qt>

#include <optional>

class QPainter;
class QRectF;
class QWidget;

namespace blankwell {

/// A text in one line for a widget that is painted often: the letters are arranged anew only when
/// that gives something else.
class TextLine {
public:
    TextLine(QString text, TextStyle style);

    /// In pixels, in the font of today.
    [[nodiscard]] int height() const;

    /// Draws the line from the top of `rect` in the painter's colour, its end left out where it is
    /// too long. It begins where texts of `widget` begin; it runs itself as its letters do.
    void draw(QPainter& painter, const QRectF& rect, const QWidget& widget);

private:
    /// What the arrangement depends on.
    struct Place {
        QFont font;
        int width = 0;
        Qt::LayoutDirection direction = Qt::LeftToRight;

        bool operator==(const Place&) const = default;
    };

    void arrange(const Place& place);

    QString text_;
    TextStyle style_;
    std::optional<Place> place_;
    QStaticText arranged_;
};

} // namespace blankwell
