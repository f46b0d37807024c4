#pragma once

#include "access/FolderAccessSetupModel.h"

#include <QWidget>

namespace blankwell {

class IconButton;
class Theme;

/// A granted folder by its name, and the button that forgets it.
class FolderRootLabel : public QWidget {
    Q_OBJECT

public:
    FolderRootLabel(const Theme& theme, const FolderRootRow& content, QWidget* parent = nullptr);

    [[nodiscard]] IconButton& forgetButton() { return *forget_; }

private:
    IconButton* forget_;
};

} // namespace blankwell
