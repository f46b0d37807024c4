#pragma once

#include "base/Subscription.h"

#include <QWidget>

#include <string_view>
#include <vector>

namespace blankwell {

class AppSettings;
class TextLabel;
class Theme;

/// The page about the file manager's menu.
class ExtensionPageView : public QWidget {
    Q_OBJECT

public:
    /// Follows the Quick Create shortcut of `settings`; both must outlive this object.
    ExtensionPageView(const Theme& theme, AppSettings& settings, QWidget* parent = nullptr);

private:
    void render(std::string_view shortcut);

    std::vector<TextLabel*> rows_;
    Subscription shortcut_;
};

} // namespace blankwell
