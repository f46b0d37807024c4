#include "settings/ShortcutRecorderView.h"

#include <utility>

namespace blankwell {

ShortcutRecorderView::ShortcutRecorderView(const Theme& theme, std::string_view name,
                                           const ShortcutRecorderServices& services,
                                           Binding<QuickCreateShortcut> binding, QWidget* parent)
    : ShortcutRecorderControl(theme, name, services, parent), binding_(std::move(binding)) {
    setOnChange(binding_.set);
    readBinding();
}

void ShortcutRecorderView::readBinding() {
    setShortcut(binding_.get());
}

} // namespace blankwell
