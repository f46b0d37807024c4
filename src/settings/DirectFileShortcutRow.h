#pragma once

#include "settings/ShortcutSettingsModel.h"

#include <QWidget>

namespace blankwell {

class IconButton;
class OptionalShortcutRecorderView;
class TextLabel;
class Theme;
struct ShortcutRecorderServices;

/// The row in which the user sets the shortcut that creates a file of one type.
class DirectFileShortcutRow : public QWidget {
    Q_OBJECT

public:
    /// `model` must outlive the row. The type that `content` is of stays that of the row.
    DirectFileShortcutRow(const Theme& theme, ShortcutSettingsModel& model,
                          const ShortcutRecorderServices& services,
                          const DirectShortcutRowContent& content, QWidget* parent = nullptr);

    [[nodiscard]] const std::string& fileTypeID() const { return content_.fileTypeID; }

    void show(const DirectShortcutRowContent& content);
    using QWidget::show;

    /// Has Tab go through the row after `previous`. Returns the row's last control.
    QWidget& placeInTabOrder(QWidget& previous);

private:
    DirectShortcutRowContent content_;
    TextLabel* caption_;
    OptionalShortcutRecorderView* recorder_;
    IconButton* clear_;
};

} // namespace blankwell
