#pragma once

#include "base/Binding.h"
#include "settings/ShortcutRecorderControl.h"

#include <optional>

namespace blankwell {

/// A recorder for a shortcut that may be absent and is kept elsewhere. Only its host takes the
/// shortcut away.
class OptionalShortcutRecorderView : public ShortcutRecorderControl {
    Q_OBJECT

public:
    /// Recorded shortcuts go into `binding`.
    OptionalShortcutRecorderView(const Theme& theme, std::string_view name,
                                 const ShortcutRecorderServices& services,
                                 Binding<std::optional<QuickCreateShortcut>> binding,
                                 QWidget* parent = nullptr);

    /// Shows the bound shortcut, or that there is none, as it is now. To be called after each
    /// change of it.
    void readBinding();

private:
    Binding<std::optional<QuickCreateShortcut>> binding_;
};

} // namespace blankwell
