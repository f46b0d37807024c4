#include "quickcreate/FileTypeTileButton.h"

#include "quickcreate/QuickCreateContents.h"
#include "widgets/FocusVisibility.h"
#include "widgets/Keys.h"
#include "widgets/Metrics.h"
#include "widgets/Painting.h"
#include "widgets/QtStrings.h"
#include "widgets/Symbols.h"
#include "widgets/Theme.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace blankwell {
namespace {

using metrics::tilePadding;
using metrics::tileSymbolSquare;

constexpr int textGap = 10;

/// The square with the symbol of the type, in a tile of `height`.
QRect symbolSquare(int height) {
    return {tilePadding, (height - tileSymbolSquare) / 2, tileSymbolSquare, tileSymbolSquare};
}

} // namespace

FileTypeTileButton::FileTypeTileButton(const Theme& theme, FileTypeDefinition type,
                                       std::function<void()> action, QWidget* parent)
    : QPushButton(parent),
      theme_(theme),
      type_(std::move(type)),
      name_(qString(type_.displayName), TextStyle::calloutMedium),
      extension_("." + qString(type_.fileExtension), TextStyle::caption) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setAutoDefault(false);
    setAccessibleName(qString(tileName(type_)));
    connect(this, &QPushButton::clicked, this, std::move(action));
}

QSize FileTypeTileButton::sizeHint() const {
    return {165,
            std::max(tileSymbolSquare, name_.height() + extension_.height()) + 2 * tilePadding};
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
    drawRepeatedShape(painter, rect(),
                      {.radius = metrics::tileRadius, .fill = fill, .outline = outline});
    if (showsFocus(*this)) {
        drawFocusOutline(painter, rect(), metrics::tileRadius, theme_.color(ColorRole::accent));
    }
}

void FileTypeTileButton::drawSquare(QPainter& painter) const {
    const auto square = QStyle::visualRect(layoutDirection(), rect(), symbolSquare(height()));
    drawRepeatedShape(
        painter, square,
        {.radius = metrics::tileSymbolRadius, .fill = theme_.color(ColorRole::accent, 0.12)});
    const int margin = (tileSymbolSquare - metrics::smallSymbolSize) / 2;
    drawSymbol(painter, type_.sfSymbolName, square.adjusted(margin, margin, -margin, -margin),
               theme_.color(ColorRole::accent));
}

void FileTypeTileButton::drawTexts(QPainter& painter) {
    const double left = QRectF(symbolSquare(height())).right() + textGap;
    const double top = (height() - name_.height() - extension_.height()) / 2.0;
    QRectF line(left, top, width() - tilePadding - left, name_.height());
    painter.setPen(theme_.color(ColorRole::label));
    name_.draw(painter, mirrored(line, *this), *this);
    line = {left, line.bottom(), line.width(), double(extension_.height())};
    painter.setPen(theme_.color(ColorRole::secondaryLabel));
    extension_.draw(painter, mirrored(line, *this), *this);
}

void FileTypeTileButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawGround(painter);
    drawSquare(painter);
    drawTexts(painter);
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
