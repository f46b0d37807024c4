#include "platform/qt/QtOpenPanel.h"

#include "platform/qt/FolderDialog.h"
#include "platform/qt/WindowPresentation.h"

#include <QFile>

#include <algorithm>
#include <iterator>

namespace blankwell {

OpenPanelResult QtOpenPanel::runModal(const OpenPanelConfiguration& configuration) {
    FolderDialog dialog(configuration);
    if (runInFront(dialog) != QDialog::Accepted) {
        return {.response = OpenPanelResult::Response::cancelled};
    }
    OpenPanelResult result{.response = OpenPanelResult::Response::confirmed};
    std::ranges::transform(
        dialog.chosenFolders(), std::back_inserter(result.urls),
        [](const QString& path) { return FileUrl(QFile::encodeName(path).toStdString()); });
    return result;
}

} // namespace blankwell
