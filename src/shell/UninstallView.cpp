#include "shell/UninstallView.h"

#include "shell/UninstallCard.h"
#include "shell/UninstallFlow.h"

namespace blankwell {

UninstallView::UninstallView(const Theme& theme, UninstallFlow& uninstaller, QWidget* parent)
    : CardView(theme, uninstallCard, [&uninstaller] { uninstaller.uninstall(); }, parent) {}

} // namespace blankwell
