#pragma once

#include "views/OnboardingPages.h"
#include "widgets/Picture.h"

namespace blankwell {

/// The file manager's menu, open over a folder.
class FinderMenuPicture : public Picture {
    Q_OBJECT

public:
    FinderMenuPicture(const Theme& theme, const FinderMenuIllustration& content,
                      QWidget* parent = nullptr);

protected:
    void draw(QPainter& painter) const override;

private:
    void drawFolder(QPainter& painter) const;
    void drawMenu(QPainter& painter) const;

    FinderMenuIllustration content_;
};

} // namespace blankwell
