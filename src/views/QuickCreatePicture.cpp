#include "views/QuickCreatePicture.h"

#include "widgets/Metrics.h"
#include "widgets/Painting.h"
#include "widgets/QtStrings.h"
#include "widgets/Theme.h"

#include <QPainter>

namespace blankwell {
namespace {

constexpr QSize pictureSize(392, 134);
constexpr double padding = 12;
constexpr double contentWidth = 392 - 2 * padding;
constexpr double segmentWidth = 112;
constexpr double gap = 8;

QString descriptionOf(const QuickCreateIllustration& content) {
    QStringList texts;
    for (const auto& destination : content.destinations) {
        texts.push_back(qString(destination.title));
    }
    texts.push_back(qString(content.searchPlaceholder));
    for (const auto& tile : content.tiles) {
        texts.push_back(qString(tile.title) + " " + qString(tile.fileExtension));
    }
    return texts.join(", ");
}

} // namespace

QuickCreatePicture::QuickCreatePicture(const Theme& theme, const QuickCreateIllustration& content,
                                       QWidget* parent)
    : Picture(theme, pictureSize, descriptionOf(content), parent), content_(content) {}

void QuickCreatePicture::draw(QPainter& painter) const {
    drawShape(painter, QRectF(QPointF(), pictureSize),
              {.radius = metrics::cardRadius, .fill = color(ColorRole::accent, 0.08)});
    drawDestinations(painter);
    drawSearchField(painter);
    const auto count = static_cast<double>(content_.tiles.size());
    const double width = (contentWidth - (count - 1) * gap) / count;
    double leading = padding;
    for (const auto& tile : content_.tiles) {
        drawTile(painter, tile, place(leading, 80, width, 42));
        leading += width + gap;
    }
}

void QuickCreatePicture::drawDestinations(QPainter& painter) const {
    const double width = segmentWidth * static_cast<double>(content_.destinations.size());
    double leading = padding + contentWidth - width;
    drawShape(painter, place(leading, 10, width, 26),
              {.radius = metrics::buttonRadius, .fill = color(ColorRole::segmentedTrack)});
    for (const auto& destination : content_.destinations) {
        const bool isChosen = &destination == &content_.destinations.front();
        const auto ink = color(isChosen ? ColorRole::label : ColorRole::secondaryLabel);
        if (isChosen) {
            drawShape(painter, place(leading + 2, 12, segmentWidth - 4, 22),
                      {.radius = 5, .fill = color(ColorRole::selectedSegment)});
        }
        drawSymbol(painter, destination.symbol, place(leading + 10, 17, 12, 12), ink);
        drawLine(painter, destination.title, place(leading + 28, 10, segmentWidth - 34, 26),
                 {.style = TextStyle::caption, .color = ink});
        leading += segmentWidth;
    }
}

void QuickCreatePicture::drawSearchField(QPainter& painter) const {
    drawShape(painter, place(padding, 44, contentWidth, 28),
              {.radius = metrics::fieldRadius,
               .fill = color(ColorRole::controlBackground),
               .outline = color(ColorRole::separator)});
    drawSymbol(painter, "magnifyingglass", place(padding + 9, 52, 12, 12),
               color(ColorRole::secondaryLabel));
    drawLine(painter, content_.searchPlaceholder, place(padding + 28, 44, contentWidth - 36, 28),
             {.style = TextStyle::caption, .color = color(ColorRole::tertiaryLabel)});
}

void QuickCreatePicture::drawTile(QPainter& painter, const QuickCreateIllustration::Tile& tile,
                                  const QRectF& where) const {
    drawShape(painter, where,
              {.radius = metrics::tileRadius,
               .fill = color(ColorRole::controlBackground),
               .outline = color(ColorRole::separator)});
    const double leading = isRightToLeft() ? pictureSize.width() - where.right() : where.left();
    const auto square = place(leading + 8, where.top() + 8, 26, 26);
    drawShape(painter, square, {.radius = 6, .fill = color(ColorRole::accent, 0.13)});
    drawSymbol(painter, tile.symbol, square.adjusted(6, 6, -6, -6), color(ColorRole::accent));
    const double textWidth = where.width() - 48;
    drawLine(painter, tile.title, place(leading + 42, where.top() + 5, textWidth, 16),
             {.style = TextStyle::captionMedium, .color = color(ColorRole::label)});
    drawLine(painter, tile.fileExtension, place(leading + 42, where.top() + 21, textWidth, 16),
             {.style = TextStyle::smallCaption, .color = color(ColorRole::secondaryLabel)});
}

} // namespace blankwell
