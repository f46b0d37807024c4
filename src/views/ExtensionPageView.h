#pragma once

#include "base/Subscription.h"

#include <QWidget>

#include <string_view>
#include <vector>

namespace blankwell {

class AppSettings;
class FileManagerMenusModel;
class TextLabel;
class Theme;

/// The page about the menus of file managers, with their switches.
class ExtensionPageView : public QWidget {
    Q_OBJECT

public:
    /// Follows the Quick Create shortcut of `settings` and the menus of `menus`. All must outlive
    /// this object.
    ExtensionPageView(const Theme& theme, AppSettings& settings, FileManagerMenusModel& menus,
                      QWidget* parent = nullptr);

private:
    void render(std::string_view shortcut);

    std::vector<TextLabel*> rows_;
    Subscription shortcut_;
};

} // namespace blankwell
