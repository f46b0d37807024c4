#include "platform/qt/TemplateIcon.h"

#include "platform/Drawing.h"
#include "platform/qt/DrawingPainter.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

#include <algorithm>

namespace blankwell {
namespace {

QColor textColor(QIcon::Mode mode) {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    const auto role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::WindowText;
    return QGuiApplication::palette().color(group, role);
}

class TemplateIconEngine : public QIconEngine {
public:
    explicit TemplateIconEngine(const DrawnImage& image) : image_(image) {}

    [[nodiscard]] QIconEngine* clone() const override { return new TemplateIconEngine(*this); }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/) override {
        QPixmap image(size);
        image.fill(Qt::transparent);
        const int side = std::min(size.width(), size.height());
        QRectF square(0, 0, side, side);
        square.moveCenter(QRectF(image.rect()).center());
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        draw(image_, painter, square);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(image.rect(), textColor(mode));
        return image;
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State state) override {
        const auto ratio = painter->device()->devicePixelRatioF();
        auto image = pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state);
        image.setDevicePixelRatio(ratio);
        painter->drawPixmap(rect.topLeft(), image);
    }

    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        return {QSize(16, 16), QSize(22, 22), QSize(24, 24), QSize(32, 32), QSize(48, 48)};
    }

private:
    DrawnImage image_;
};

} // namespace

QIcon drawnIcon(const DrawnImage& image) {
    return QIcon(new TemplateIconEngine(image));
}

} // namespace blankwell
