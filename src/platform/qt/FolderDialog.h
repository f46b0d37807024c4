#pragma once

#include <QDialog>
#include <QFileDialog>
#include <QStringList>

namespace blankwell {

struct OpenPanelConfiguration;

/// A dialog with a message above Qt's file dialog, which is set to choose folders.
class FolderDialog : public QDialog {
public:
    explicit FolderDialog(const OpenPanelConfiguration& configuration);

    /// The absolute paths of what is chosen, once it was accepted.
    [[nodiscard]] QStringList chosenFolders() const { return files_.selectedFiles(); }

private:
    void configureFiles(const OpenPanelConfiguration& configuration);
    void allowMultipleSelection();

    QFileDialog files_;
};

} // namespace blankwell
