#pragma once

#include "base/Subscription.h"
#include "views/FileTypesListModel.h"
#include "widgets/Card.h"

#include <vector>

namespace blankwell {

class FileTypeSectionView;
class MainQueue;

/// The card with all file types, by category: each with its switch, in the user's order.
class FileTypesListView : public Card {
    Q_OBJECT

public:
    /// Follows `settings`; both must outlive this object.
    FileTypesListView(const Theme& theme, AppSettings& settings, MainQueue& mainQueue,
                      QWidget* parent = nullptr);

private:
    void render();
    void orderKeyboardFocus();
    void keepFocusInSight();

    FileTypesListModel model_;
    std::vector<FileTypeSectionView*> sections_;
    bool isMovedByKeyboard_ = false;
    std::vector<Subscription> subscriptions_;
};

} // namespace blankwell
