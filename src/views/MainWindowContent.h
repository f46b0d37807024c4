#pragma once

#include "settings/AppPresence.h"

#include <array>
#include <string>
#include <string_view>

namespace blankwell {

class Bundle;

/// The sections of the main window, from top to bottom.
enum class MainWindowSection {
    header,
    appPresence,
    fileTypes,
    shortcuts,
    folderAccess,
    finderExtension,
    uninstall,
};

inline constexpr std::array allMainWindowSections{
    MainWindowSection::header,       MainWindowSection::appPresence,
    MainWindowSection::fileTypes,    MainWindowSection::shortcuts,
    MainWindowSection::folderAccess, MainWindowSection::finderExtension,
    MainWindowSection::uninstall,
};

/// The texts of the main window that never change and belong to no section of their own.
struct MainWindowTexts {
    std::string_view symbol;
    std::string_view title;
    std::string_view callout;
    std::string_view appPresenceHeading;

    friend bool operator==(const MainWindowTexts&, const MainWindowTexts&) = default;
};

inline constexpr MainWindowTexts mainWindowTexts{
    .symbol = "doc.badge.plus",
    .title = "Blankwell+",
    .callout = "The missing New File command for macOS.",
    .appPresenceHeading = "App Presence",
};

/// "Version " and the application's version for people; blank where the bundle has none.
[[nodiscard]] std::string versionText(const Bundle& bundle);

/// One choice of the presence picker.
struct PresenceSegment {
    AppPresence presence;
    std::string_view title;
    /// Shown under the picker while this is the choice.
    std::string_view description;

    friend bool operator==(const PresenceSegment&, const PresenceSegment&) = default;
};

/// The choices, from left to right.
[[nodiscard]] std::array<PresenceSegment, allAppPresences.size()> presenceSegments();

} // namespace blankwell
