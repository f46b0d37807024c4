#pragma once

#include "base/Geometry.h"

#include <string>

namespace blankwell {

/// How the Quick Create panel's window is made.
struct QuickCreatePanelConfiguration {
    enum class Backing { buffered };
    enum class Level { normal, floating };

    Size contentSize;
    Size minimumSize;
    std::string title;
    bool isTitled = false;
    bool isClosable = false;
    /// The content reaches under the title bar.
    bool hasFullSizeContentView = false;
    bool isTitleHidden = false;
    bool titlebarAppearsTransparent = false;
    Backing backing = Backing::buffered;
    /// The window is made when it is first shown, not before.
    bool isDeferred = false;
    /// It stays above the application's other windows.
    bool isFloatingPanel = false;
    Level level = Level::normal;
    /// It is on every desktop.
    bool canJoinAllSpaces = false;
    /// It may stand beside a window that fills the screen.
    bool isFullScreenAuxiliary = false;
    /// Closing destroys it.
    bool isReleasedWhenClosed = false;
    bool isMovableByWindowBackground = false;

    friend bool operator==(const QuickCreatePanelConfiguration&,
                           const QuickCreatePanelConfiguration&) = default;
};

/// The window of the Quick Create panel. Coordinates are those of `Screens`.
class QuickCreatePanelWindow {
public:
    virtual ~QuickCreatePanelWindow() = default;

    /// The place of the whole window, with its borders.
    [[nodiscard]] virtual Rect frame() const = 0;

    /// Moves and sizes the whole window and draws it anew. Where windows cannot be placed the size
    /// alone is set.
    virtual void setFrame(const Rect& frame) = 0;

    /// Shows it in front of all others, ready for keys.
    virtual void makeKeyAndOrderFront() = 0;

    /// Hides it.
    virtual void orderOut() = 0;

    [[nodiscard]] virtual bool isVisible() const = 0;
};

} // namespace blankwell
