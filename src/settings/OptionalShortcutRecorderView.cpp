#include "settings/OptionalShortcutRecorderView.h"

#include <utility>

namespace blankwell {

OptionalShortcutRecorderView::OptionalShortcutRecorderView(
    const Theme& theme, std::string_view name, const ShortcutRecorderServices& services,
    Binding<std::optional<QuickCreateShortcut>> binding, QWidget* parent)
    : ShortcutRecorderControl(theme, name, services, parent), binding_(std::move(binding)) {
    setOnChange(binding_.set);
    readBinding();
}

void OptionalShortcutRecorderView::readBinding() {
    setShortcut(binding_.get());
    setPlaceholder("Set Shortcut");
}

} // namespace blankwell
