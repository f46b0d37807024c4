#include "widgets/TextLine.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>
#include <QTextOption>
#include <QWidget>

#include <utility>

namespace blankwell {

TextLine::TextLine(QString text, TextStyle style) : text_(std::move(text)), style_(style) {
    arranged_.setTextFormat(Qt::PlainText);
}

int TextLine::height() const {
    return QFontMetrics(fontOf(style_)).height();
}

void TextLine::draw(QPainter& painter, const QRectF& rect, const QWidget& widget) {
    const Place place{.font = fontOf(style_),
                      .width = static_cast<int>(rect.width()),
                      .direction = widget.layoutDirection()};
    if (place_ != place) {
        arrange(place);
    }
    painter.setFont(place.font);
    painter.drawStaticText(rect.topLeft(), arranged_);
}

void TextLine::arrange(const Place& place) {
    QTextOption option(QStyle::visualAlignment(place.direction, Qt::AlignLeading) |
                       Qt::AlignAbsolute);
    option.setTextDirection(Qt::LayoutDirectionAuto);
    option.setWrapMode(QTextOption::NoWrap);
    arranged_.setTextOption(option);
    arranged_.setTextWidth(place.width);
    arranged_.setText(QFontMetrics(place.font).elidedText(text_, Qt::ElideRight, place.width));
    place_ = place;
}

} // namespace blankwell
