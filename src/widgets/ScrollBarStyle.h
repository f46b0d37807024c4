#pragma once

#include <QProxyStyle>

namespace blankwell {

class Theme;

/// Upright scroll bars that are a rounded handle and nothing else, and nothing at all where there
/// is nothing to scroll.
class ScrollBarStyle : public QProxyStyle {
    Q_OBJECT

public:
    ScrollBarStyle(const Theme& theme, int width) : theme_(theme), width_(width) {}

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;

private:
    const Theme& theme_;
    int width_;
};

} // namespace blankwell
