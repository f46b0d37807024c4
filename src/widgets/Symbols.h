#pragma once

#include <QIcon>
#include <QRectF>

#include <string_view>

class QColor;
class QPainter;

namespace blankwell {

/// Whether there is a drawing of the symbol `name`.
[[nodiscard]] bool hasSymbol(std::string_view name);

/// Draws the symbol `name` in one colour into the middle of `place`, as large as fits, sharp on
/// every display. What was drawn before comes from Qt's pixmap cache. An unknown symbol draws
/// nothing.
void drawSymbol(QPainter& painter, std::string_view name, const QRectF& place, const QColor& color);

/// The symbol for menus, in the colour that their texts have whenever it is drawn; a null icon
/// where there is no such symbol.
[[nodiscard]] QIcon symbolIcon(std::string_view name);

} // namespace blankwell
