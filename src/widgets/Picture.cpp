#include "widgets/Picture.h"

#include "widgets/AccessibleRole.h"
#include "widgets/QtStrings.h"
#include "widgets/Symbols.h"
#include "widgets/Theme.h"

#include <QFontInfo>
#include <QPainter>
#include <QStyle>
#include <QTextOption>

#include <algorithm>

namespace blankwell {
namespace {

/// The size in pixels of the font that pictures are made for.
constexpr double plainTextSize = 13;

double scale() {
    const double size = QFontInfo(fontOf(TextStyle::body)).pixelSize();
    return std::clamp(size / plainTextSize, 1.0, 2.0);
}

} // namespace

Picture::Picture(const Theme& theme, QSize size, const QString& description, QWidget* parent)
    : QWidget(parent), theme_(theme), size_(size) {
    setAccessibleRole(*this, QAccessible::Graphic);
    setAccessibleName(description);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Picture::sizeHint() const {
    return (QSizeF(size_) * scale()).toSize();
}

QRectF Picture::place(double leading, double top, double width, double height) const {
    return {isRightToLeft() ? size_.width() - leading - width : leading, top, width, height};
}

QColor Picture::color(ColorRole role, double opacity) const {
    return theme_.color(role, opacity);
}

void Picture::drawSymbol(QPainter& painter, std::string_view name, const QRectF& where,
                         const QColor& color) const {
    blankwell::drawSymbol(painter, name, where, color);
}

void Picture::drawLine(QPainter& painter, std::string_view text, const QRectF& where,
                       const Line& line) const {
    auto font = fontOf(line.style);
    font.setPointSizeF(font.pointSizeF() / scale()); // which the painter multiplies by again
    painter.setFont(font);
    painter.setPen(line.color);
    QTextOption option(QStyle::visualAlignment(layoutDirection(), line.alignment) |
                       Qt::AlignAbsolute | Qt::AlignVCenter);
    option.setTextDirection(Qt::LayoutDirectionAuto);
    option.setWrapMode(QTextOption::NoWrap);
    painter.drawText(where,
                     painter.fontMetrics().elidedText(qString(text), Qt::ElideRight,
                                                      static_cast<int>(where.width()) + 1),
                     option);
}

void Picture::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.scale(scale(), scale());
    draw(painter);
}

} // namespace blankwell
