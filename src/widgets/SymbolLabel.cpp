#include "widgets/SymbolLabel.h"

#include "widgets/Symbols.h"
#include "widgets/Theme.h"

#include <QPainter>

#include <algorithm>

namespace blankwell {

SymbolLabel::SymbolLabel(const Theme& theme, std::string_view symbol, const Look& look,
                         QWidget* parent)
    : QWidget(parent), theme_(theme), symbol_(symbol), look_(look) {
    setFixedSize(std::max(look.columnWidth, look.size), look.size);
}

void SymbolLabel::setSymbol(std::string_view symbol) {
    symbol_ = symbol;
    update();
}

void SymbolLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawSymbol(painter, symbol_, rect(), theme_.color(look_.color));
}

} // namespace blankwell
