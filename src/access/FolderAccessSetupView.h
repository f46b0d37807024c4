#pragma once

#include "access/FolderAccessSetupModel.h"

#include <QWidget>

#include <vector>

namespace blankwell {

class FlowLayout;
class FolderRootLabel;
class PushButton;
class TextLabel;
class Theme;

/// The section in which the user grants folders and forgets them again.
class FolderAccessSetupView : public QWidget {
    Q_OBJECT

public:
    /// The services must outlive the view.
    FolderAccessSetupView(const Theme& theme, const FolderAccessSetupModel::Services& services,
                          QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] QWidget* makeHeader();
    [[nodiscard]] QWidget* makeButtons();
    void refresh();
    void replaceRoots();
    void forget(const FileUrl& root);
    void focusRoot(std::size_t index);

    const Theme& theme_;
    FolderAccessSetupModel model_;
    std::vector<FolderRootRow> shownRows_;
    TextLabel* summary_ = nullptr;
    PushButton* lastGrant_ = nullptr;
    QWidget* roots_;
    FlowLayout* rootsLayout_;
    std::vector<FolderRootLabel*> rootLabels_;
    TextLabel* status_;
};

} // namespace blankwell
