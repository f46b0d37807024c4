#pragma once

#include "base/Geometry.h"
#include "views/MainWindowLayout.h"

#include <optional>
#include <string_view>

namespace blankwell {

/// A kind of window that the application opens by its id.
struct WindowScene {
    std::string_view id;
    std::string_view title;
    /// At first; where there is none, that of the content.
    std::optional<Size> defaultSize;
    /// The smallest that the user can make the content.
    std::optional<Size> contentMinimumSize;

    friend bool operator==(const WindowScene&, const WindowScene&) = default;
};

inline constexpr WindowScene mainWindowScene{
    .id = "main",
    .title = "Blankwell+",
    .defaultSize = mainwindow::sceneDefaultSize,
    .contentMinimumSize = mainwindow::contentMinimumSize,
};

/// There is one window of it at most: opening it again brings that to the front.
inline constexpr WindowScene helpWindowScene{
    .id = "help",
    .title = "Blankwell+ Help",
    .defaultSize = std::nullopt,
    .contentMinimumSize = std::nullopt,
};

/// The page about the file manager's menu; one window at most.
inline constexpr WindowScene extensionWindowScene{
    .id = "extension",
    .title = "Blankwell+ Finder Extension",
    .defaultSize = Size{.width = 580, .height = 720},
    .contentMinimumSize = Size{.width = 400, .height = 280},
};

} // namespace blankwell
