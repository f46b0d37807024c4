#pragma once

#include "base/Subscription.h"
#include "settings/AppPresence.h"
#include "widgets/Card.h"

namespace blankwell {

class AppSettings;
class LoginItemModel;
class SegmentedControl;
class TextLabel;

/// The card in which the user chooses where the application shows itself, and whether it starts at
/// login.
class AppPresenceView : public Card {
    Q_OBJECT

public:
    /// `settings` and `loginItem` must outlive this object.
    AppPresenceView(const Theme& theme, AppSettings& settings, LoginItemModel& loginItem,
                    QWidget* parent = nullptr);

private:
    void render(AppPresence presence);

    SegmentedControl* picker_;
    TextLabel* description_;
    Subscription presence_;
};

} // namespace blankwell
