#pragma once

#include "base/Published.h"
#include "settings/HotKeyFailures.h"
#include "settings/ShortcutRecorderServices.h"
#include "settings/ShortcutSettingsModel.h"

#include <QWidget>

#include <vector>

class QVBoxLayout;

namespace blankwell {

class DirectFileShortcutRow;
class Disclosure;
class MainQueue;
class SegmentedControl;
class ShortcutRecorderView;
class TextLabel;
class Theme;

/// The settings of keyboard shortcuts, in step with the settings store and with what became of the
/// registrations.
class ShortcutSettingsView : public QWidget {
    Q_OBJECT

public:
    /// All but the recorders' services must outlive the view.
    struct Services {
        AppSettings& settings;
        Published<HotKeyFailures>& hotKeyFailures;
        MainQueue& mainQueue;
        ShortcutRecorderServices recorders;
    };

    ShortcutSettingsView(const Theme& theme, const Services& services, QWidget* parent = nullptr);

    /// Whether the shortcuts of the file types are shown; at first they are not.
    [[nodiscard]] bool showsDirectShortcuts() const;
    void setShowsDirectShortcuts(bool shows);

private:
    [[nodiscard]] QVBoxLayout* makeHeader();
    [[nodiscard]] QWidget* makeQuickCreateRow(const ShortcutRecorderServices& recorders);
    [[nodiscard]] QWidget* makeDestinationRow();
    [[nodiscard]] Disclosure* makeDirectShortcuts(const ShortcutRecorderServices& recorders);
    void refresh();
    void arrange(const std::vector<DirectShortcutRowContent>& contents);

    const Theme& theme_;
    Published<HotKeyFailures>& hotKeyFailures_;
    ShortcutSettingsModel model_;
    TextLabel* warning_ = nullptr;
    ShortcutRecorderView* quickCreate_ = nullptr;
    SegmentedControl* destination_ = nullptr;
    Disclosure* directShortcuts_ = nullptr;
    QVBoxLayout* rowsLayout_ = nullptr;
    /// In the order in which they stand.
    std::vector<DirectFileShortcutRow*> rows_;
    // Behind all that their calls use.
    Subscription settingsChanges_;
    Subscription failureChanges_;
};

} // namespace blankwell
