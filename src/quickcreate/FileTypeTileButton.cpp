#include "quickcreate/FileTypeTileButton.h"

#include "quickcreate/QuickCreateContents.h"
#include "widgets/FocusVisibility.h"
#include "widgets/Keys.h"
#include "widgets/Metrics.h"
#include "widgets/Painting.h"
#include "widgets/QtStrings.h"
#include "widgets/Symbols.h"
#include "widgets/Theme.h"
#include "widgets/Typography.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace blankwell {
namespace {

using metrics::tilePadding;
using metrics::tileSymbolSquare;

constexpr int textGap = 10;

int textHeight() {
    return QFontMetrics(fontOf(TextStyle::calloutMedium)).height() +
           QFontMetrics(fontOf(TextStyle::caption)).height();
}

} // namespace

FileTypeTileButton::FileTypeTileButton(const Theme& theme, FileTypeDefinition type,
                                       std::function<void()> action, QWidget* parent)
    : QPushButton(parent), theme_(theme), type_(std::move(type)) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setAutoDefault(false);
    setAccessibleName(qString(tileName(type_)));
    connect(this, &QPushButton::clicked, this, std::move(action));
}

QSize FileTypeTileButton::sizeHint() const {
    return {165, std::max(tileSymbolSquare, textHeight()) + 2 * tilePadding};
}

QSize FileTypeTileButton::minimumSizeHint() const {
    return {tileSymbolSquare + 2 * tilePadding, sizeHint().height()};
}

void FileTypeTileButton::drawGround(QPainter& painter) const {
    const bool isHovered = underMouse() || isDown();
    const auto fill = isHovered ? theme_.color(ColorRole::accent, isDown() ? 0.18 : 0.10)
                                : theme_.color(ColorRole::controlBackground, 0.78);
    const auto outline = isHovered ? theme_.color(ColorRole::accent, 0.42)
                                   : theme_.color(ColorRole::separator, 0.45);
    drawShape(painter, rect(), {.radius = metrics::tileRadius, .fill = fill, .outline = outline});
    if (showsFocus(*this)) {
        drawFocusOutline(painter, rect(), metrics::tileRadius, theme_.color(ColorRole::accent));
    }
}

void FileTypeTileButton::drawContent(QPainter& painter) const {
    const QRectF square(tilePadding, (height() - tileSymbolSquare) / 2.0, tileSymbolSquare,
                        tileSymbolSquare);
    drawShape(painter, mirrored(square, *this),
              {.radius = metrics::tileSymbolRadius, .fill = theme_.color(ColorRole::accent, 0.12)});
    const int margin = (tileSymbolSquare - metrics::smallSymbolSize) / 2;
    drawSymbol(painter, type_.sfSymbolName,
               mirrored(square, *this).adjusted(margin, margin, -margin, -margin),
               theme_.color(ColorRole::accent));

    const double left = square.right() + textGap;
    QRectF line(left, (height() - textHeight()) / 2.0, width() - tilePadding - left, 0);
    const auto write = [&](TextStyle style, ColorRole color, const QString& text) {
        const auto font = fontOf(style);
        const QFontMetrics metrics(font);
        line.setHeight(metrics.height());
        painter.setFont(font);
        painter.setPen(theme_.color(color));
        drawLine(painter, mirrored(line, *this), Qt::AlignLeading,
                 metrics.elidedText(text, Qt::ElideRight, static_cast<int>(line.width())), *this);
        line.moveTop(line.bottom());
    };
    write(TextStyle::calloutMedium, ColorRole::label, qString(type_.displayName));
    write(TextStyle::caption, ColorRole::secondaryLabel, "." + qString(type_.fileExtension));
}

void FileTypeTileButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawGround(painter);
    drawContent(painter);
}

void FileTypeTileButton::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        event->ignore(); // the list of tiles knows where they lead
        break;
    default:
        if (isReturn(*event)) {
            click();
        } else {
            QPushButton::keyPressEvent(event);
        }
    }
}

} // namespace blankwell
