#pragma once

#include "base/Geometry.h"
#include "platform/Drawing.h"
#include "platform/Menu.h"

#include <memory>
#include <string>

namespace blankwell {

/// How a status item looks.
struct StatusItemConfiguration {
    enum class ImageScaling { proportionallyDown };
    enum class ImagePosition { imageOnly };

    /// Its fixed width in the bar, where bars know widths.
    Points length = 0;
    DrawnImage image;
    ImageScaling imageScaling = ImageScaling::proportionallyDown;
    ImagePosition imagePosition = ImagePosition::imageOnly;
    std::string toolTip;

    friend bool operator==(const StatusItemConfiguration&,
                           const StatusItemConfiguration&) = default;
};

/// The application's place in the status bar. Destroying it removes it from the bar.
class StatusItem {
public:
    virtual ~StatusItem() = default;

    /// Shows `menu` from now on. May be called while the menu before is open or one of its commands
    /// runs.
    virtual void setMenu(ActionMenu menu) = 0;
};

/// The desktop's row of status items.
class StatusBar {
public:
    virtual ~StatusBar() = default;

    /// Puts a new item into the bar, without a menu at first. While the desktop shows no bar the
    /// item waits, and appears with the bar.
    [[nodiscard]] virtual std::unique_ptr<StatusItem>
    makeItem(const StatusItemConfiguration& configuration) = 0;
};

} // namespace blankwell
