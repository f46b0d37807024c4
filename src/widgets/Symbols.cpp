#include "widgets/Symbols.h"

#include "widgets/QtStrings.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <algorithm>
#include <string>

namespace blankwell {
namespace {

QString fileOf(std::string_view name) {
    return ":/symbols/" + qString(name) + ".svg";
}

QPixmap render(std::string_view name, int side, const QColor& color) {
    QPixmap image(side, side);
    image.fill(Qt::transparent);
    if (!hasSymbol(name)) {
        return image;
    }
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QSvgRenderer(fileOf(name)).render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    return image;
}

/// The symbol in a square of `side` device pixels.
QPixmap tinted(std::string_view name, int side, const QColor& color) {
    const auto key = "symbol " + qString(name) + ' ' + QString::number(side) + ' ' +
                     QString::number(color.rgba(), 16);
    QPixmap image;
    if (!QPixmapCache::find(key, &image)) {
        image = render(name, side, color);
        QPixmapCache::insert(key, image);
    }
    return image;
}

QColor textColor(QIcon::Mode mode) {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    const auto role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::WindowText;
    return QGuiApplication::palette().color(group, role);
}

class SymbolIconEngine : public QIconEngine {
public:
    explicit SymbolIconEngine(std::string_view name) : name_(name) {}

    [[nodiscard]] QIconEngine* clone() const override { return new SymbolIconEngine(*this); }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap image(size);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        paint(&painter, image.rect(), mode, state);
        return image;
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State /*state*/) override {
        drawSymbol(*painter, name_, rect, textColor(mode));
    }

    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        return {QSize(16, 16), QSize(22, 22), QSize(24, 24), QSize(32, 32), QSize(48, 48)};
    }

private:
    std::string name_;
};

} // namespace

bool hasSymbol(std::string_view name) {
    return QFile::exists(fileOf(name));
}

void drawSymbol(QPainter& painter, std::string_view name, const QRectF& place,
                const QColor& color) {
    const auto ratio = painter.device()->devicePixelRatioF();
    const int side = qRound(std::min(place.width(), place.height()) * ratio);
    if (side <= 0) {
        return;
    }
    auto image = tinted(name, side, color);
    image.setDevicePixelRatio(ratio);
    // On whole device pixels: between them it would be blurred.
    const auto corner = (place.center() - QPointF(side, side) / (2 * ratio)) * ratio;
    painter.drawPixmap(QPointF(corner.toPoint()) / ratio, image);
}

QIcon symbolIcon(std::string_view name) {
    return hasSymbol(name) ? QIcon(new SymbolIconEngine(name)) : QIcon();
}

} // namespace blankwell
