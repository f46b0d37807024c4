#include "platform/qt/FolderDialog.h"

#include "platform/OpenPanel.h"
#include "platform/qt/QtText.h"

#include <QAbstractItemView>
#include <QFile>
#include <QLabel>
#include <QVBoxLayout>

namespace blankwell {

FolderDialog::FolderDialog(const OpenPanelConfiguration& configuration)
    : files_(new QFileDialog(this)) {
    configureFiles(configuration);
    auto* const message = new QLabel(qtText(configuration.message));
    message->setObjectName("message");
    message->setTextFormat(Qt::PlainText);
    message->setWordWrap(true);
    message->setContentsMargins(16, 16, 16, 4);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(message);
    layout->addWidget(files_);
    setWindowTitle(qtText(configuration.title));
    setFocusProxy(files_);
    connect(files_, &QDialog::finished, this, &QDialog::done);
    resize(720, 520);
}

void FolderDialog::configureFiles(const OpenPanelConfiguration& configuration) {
    files_->setWindowFlags(Qt::Widget); // a part of this dialog, not a window of its own
    files_->setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::ShowDirsOnly |
                       QFileDialog::ReadOnly);
    files_->setFileMode(QFileDialog::Directory);
    files_->setLabelText(QFileDialog::Accept, qtText(configuration.prompt));
    files_->setSizeGripEnabled(false);
    for (const auto* const name : {"fileTypeLabel", "fileTypeCombo"}) {
        files_->findChild<QWidget*>(name)->hide(); // there is one type to choose: folders
    }
    if (configuration.directory) {
        files_->setDirectory(
            QFile::decodeName(QByteArray::fromStdString(configuration.directory->path())));
    }
    if (configuration.allowsMultipleSelection) {
        allowMultipleSelection();
    }
}

void FolderDialog::allowMultipleSelection() {
    // Qt's dialog confirms several folders, but its views select one: both have these names.
    for (const auto* const name : {"listView", "treeView"}) {
        files_->findChild<QAbstractItemView*>(name)->setSelectionMode(
            QAbstractItemView::ExtendedSelection);
    }
}

} // namespace blankwell
