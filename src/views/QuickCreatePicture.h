#pragma once

#include "views/OnboardingPages.h"
#include "widgets/Picture.h"

namespace blankwell {

/// The Quick Create panel with its parts.
class QuickCreatePicture : public Picture {
    Q_OBJECT

public:
    QuickCreatePicture(const Theme& theme, const QuickCreateIllustration& content,
                       QWidget* parent = nullptr);

protected:
    void draw(QPainter& painter) const override;

private:
    void drawDestinations(QPainter& painter) const;
    void drawSearchField(QPainter& painter) const;
    void drawTile(QPainter& painter, const QuickCreateIllustration::Tile& tile,
                  const QRectF& where) const;

    QuickCreateIllustration content_;
};

} // namespace blankwell
