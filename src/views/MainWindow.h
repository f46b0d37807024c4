#pragma once

#include <QWidget>

#include <functional>
#include <string_view>

class QLabel;

namespace blankwell {

/// The application's main window.
class MainWindow : public QWidget {
public:
    /// The title by which requests and menus know the window.
    static constexpr std::string_view title = "Blankwell+";

    /// `showQuickCreate` is called when the user asks for the Quick Create panel.
    explicit MainWindow(const std::function<void()>& showQuickCreate);

    /// Says how the panel is opened in every program: by the shortcut of this text.
    void setShortcutText(std::string_view displayString);

private:
    QLabel* shortcut_;
};

} // namespace blankwell
