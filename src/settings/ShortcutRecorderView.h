#pragma once

#include "base/Binding.h"
#include "settings/ShortcutRecorderControl.h"

namespace blankwell {

/// A recorder for a shortcut that always exists and is kept elsewhere.
class ShortcutRecorderView : public ShortcutRecorderControl {
    Q_OBJECT

public:
    /// Recorded shortcuts go into `binding`.
    ShortcutRecorderView(const Theme& theme, std::string_view name,
                         const ShortcutRecorderServices& services,
                         Binding<QuickCreateShortcut> binding, QWidget* parent = nullptr);

    /// Shows the bound shortcut as it is now. To be called after each change of it.
    void readBinding();

private:
    Binding<QuickCreateShortcut> binding_;
};

} // namespace blankwell
