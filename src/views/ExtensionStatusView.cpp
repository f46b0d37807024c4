#include "views/ExtensionStatusView.h"

#include "views/ExtensionStatusModel.h"

namespace blankwell {

ExtensionStatusView::ExtensionStatusView(const Theme& theme, ExtensionStatusModel& model,
                                         QWidget* parent)
    : CardView(theme, extensionStatusCard, [&model] { model.openExtensionSettings(); }, parent) {}

} // namespace blankwell
