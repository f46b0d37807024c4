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
    [[nodiscard]] QStringList chosenFolders() const { return files_->selectedFiles(); }

private:
    void configureFiles(const OpenPanelConfiguration& configuration);
    void allowMultipleSelection();

    /// A child and no member, so that it goes when this is no dialog any more: Qt looks through the
    /// dialog for another default button while its buttons go.
    QFileDialog* files_;
};

} // namespace blankwell
