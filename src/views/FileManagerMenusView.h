#pragma once

#include "base/Subscription.h"
#include "platform/FileManager.h"
#include "widgets/Card.h"

#include <vector>

namespace blankwell {

class FileManagerMenuRowView;
class FileManagerMenusModel;
class TextLabel;
struct FileManagerMenusContent;

/// The card with a switch for the menu of each file manager.
class FileManagerMenusView : public Card {
    Q_OBJECT

public:
    /// Follows `model`; both must outlive this object.
    FileManagerMenusView(const Theme& theme, FileManagerMenusModel& model,
                         QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void render(const FileManagerMenusContent& shown);
    void replaceRows(const FileManagerMenusContent& shown);

    const Theme& theme_;
    FileManagerMenusModel& model_;
    TextLabel* text_;
    QWidget* list_ = nullptr;
    std::vector<FileManager> managers_;
    std::vector<FileManagerMenuRowView*> rows_;
    Subscription shown_;
};

} // namespace blankwell
