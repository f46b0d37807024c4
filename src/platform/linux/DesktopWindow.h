#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace blankwell {

/// What a window tells about itself, by the properties of the Extended Window Manager Hints and of
/// the toolkits. A property that is not set is empty or zero.
struct DesktopWindow {
    enum class Kind {
        normal,
        /// The desktop behind all windows.
        desktop,
        /// A dialog, menu, panel and the like.
        other,
    };

    /// The class part of `WM_CLASS`.
    std::string windowClass;
    /// `_NET_WM_NAME`: UTF-8.
    std::string title;
    /// `WM_WINDOW_ROLE`.
    std::string role;
    /// `_GTK_WINDOW_OBJECT_PATH`: the window on the bus name of its program.
    std::string objectPath;
    /// `_BLANKWELL_PLUS_LOCATION`: the URI of what a file manager's window shows, where it has the
    /// application's own extension that writes it there.
    std::string location;
    /// `_NET_WM_PID`.
    std::uint32_t processId = 0;
    Kind kind = Kind::normal;
    /// Minimised, or else not to be seen.
    bool isHidden = false;
    /// The virtual desktop it stands on, counted from zero, or `everyWorkspace`.
    std::uint32_t workspace = everyWorkspace;

    static constexpr std::uint32_t everyWorkspace = 0xFFFFFFFF;

    friend bool operator==(const DesktopWindow&, const DesktopWindow&) = default;
};

/// The windows that the window manager keeps.
struct WindowStack {
    /// The lowest first.
    std::vector<DesktopWindow> windows;
    /// The virtual desktop that the user sees, where there are several.
    std::optional<std::uint32_t> workspace;
};

} // namespace blankwell
