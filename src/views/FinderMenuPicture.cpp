#include "views/FinderMenuPicture.h"

#include "widgets/Metrics.h"
#include "widgets/Painting.h"
#include "widgets/QtStrings.h"
#include "widgets/Theme.h"

#include <QPainter>

namespace blankwell {
namespace {

constexpr QSize pictureSize(300, 150);
constexpr double menuLeading = 118;
constexpr double menuTop = 28;
constexpr double menuWidth = 160;
constexpr double menuPadding = 5;
constexpr double entryHeight = 25;

QString descriptionOf(const FinderMenuIllustration& content) {
    auto texts = QStringList(qString(content.folderName));
    for (const auto& entry : content.entries) {
        texts.push_back(qString(entry));
    }
    return texts.join(", ");
}

/// The soft shadow under a menu at `rect`.
void drawShadow(QPainter& painter, const QRectF& rect) {
    for (int spread = 6; spread > 0; --spread) {
        drawShape(painter, rect.adjusted(-spread, 2 - spread, spread, 3 + spread),
                  {.radius = 7.0 + spread, .fill = QColor(0, 0, 0, 6)});
    }
}

} // namespace

FinderMenuPicture::FinderMenuPicture(const Theme& theme, const FinderMenuIllustration& content,
                                     QWidget* parent)
    : Picture(theme, pictureSize, descriptionOf(content), parent), content_(content) {}

void FinderMenuPicture::draw(QPainter& painter) const {
    drawShape(painter, QRectF(QPointF(), pictureSize),
              {.radius = metrics::cardRadius, .fill = color(ColorRole::accent, 0.08)});
    drawFolder(painter);
    drawMenu(painter);
}

void FinderMenuPicture::drawFolder(QPainter& painter) const {
    drawSymbol(painter, "folder", place(34, 37, 44, 44), color(ColorRole::accent));
    drawLine(painter, content_.folderName, place(6, 80, 100, 18),
             {.style = TextStyle::caption,
              .color = color(ColorRole::label),
              .alignment = Qt::AlignHCenter});
}

void FinderMenuPicture::drawMenu(QPainter& painter) const {
    const double height =
        2 * menuPadding + static_cast<double>(content_.entries.size()) * entryHeight;
    const auto menu = place(menuLeading, menuTop, menuWidth, height);
    drawShadow(painter, menu);
    drawShape(painter, menu,
              {.radius = 7,
               .fill = color(ColorRole::controlBackground),
               .outline = color(ColorRole::separator)});
    double top = menuTop + menuPadding;
    for (const auto& entry : content_.entries) {
        const bool isChosen = &entry == &content_.entries.back();
        const auto ink = color(isChosen ? ColorRole::textOnAccent : ColorRole::label);
        if (isChosen) {
            drawShape(
                painter,
                place(menuLeading + menuPadding, top, menuWidth - 2 * menuPadding, entryHeight - 1),
                {.radius = 5, .fill = color(ColorRole::accent)});
            painter.save();
            const auto mark = place(menuLeading + menuWidth - 24, top + 7, 10, 10);
            if (isRightToLeft()) { // where submenus open to the left
                painter.translate(2 * mark.center().x(), 0);
                painter.scale(-1, 1);
            }
            drawSymbol(painter, content_.submenuSymbol, mark, ink);
            painter.restore();
        }
        drawLine(painter, entry, place(menuLeading + 14, top, menuWidth - 40, entryHeight - 1),
                 {.style = TextStyle::callout, .color = ink});
        top += entryHeight;
    }
}

} // namespace blankwell
