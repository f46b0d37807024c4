#pragma once

#include "base/Subscription.h"
#include "widgets/Card.h"

#include <string_view>

namespace blankwell {

class AppSettings;

/// The short guide to where files can be created, with the Quick Create shortcut that the user has.
class CreationGuideView : public Card {
    Q_OBJECT

public:
    /// `theme` and `settings` must outlive this object.
    CreationGuideView(const Theme& theme, AppSettings& settings, QWidget* parent = nullptr);

private:
    void show(std::string_view shortcut);

    const Theme& theme_;
    QWidget* guide_ = nullptr;
    Subscription shortcut_;
};

} // namespace blankwell
