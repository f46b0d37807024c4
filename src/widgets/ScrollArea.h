#pragma once

#include <QScrollArea>

namespace blankwell {

class Theme;

/// An area without frame that scrolls up and down, with a narrow bar at its end. The room of the
/// bar is kept also while there is nothing to scroll, so that nothing moves when there is.
class ScrollArea : public QScrollArea {
    Q_OBJECT

public:
    /// The width of that room.
    static constexpr int barWidth = 10;

    explicit ScrollArea(const Theme& theme, QWidget* parent = nullptr);
};

} // namespace blankwell
