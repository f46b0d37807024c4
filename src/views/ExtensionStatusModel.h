#pragma once

#include "shell/CardTexts.h"

#include <array>
#include <string_view>

namespace blankwell {

class Workspace;

/// The card that leads to the settings of the file manager's extension.
inline constexpr CardTexts extensionStatusCard{
    .symbol = "puzzlepiece.extension.fill",
    .symbolColor = ColorRole::accent,
    .title = "Finder Extension",
    .text = "Enable the Blankwell+ Finder extension for Finder context menus where macOS allows "
            "them.",
    .button = "Open Extension Settings",
};

/// Where those settings are, the best place first.
inline constexpr std::array<std::string_view, 2> extensionSettingsURLs{
    "x-apple.systempreferences:com.apple.ExtensionsPreferences",
    "x-apple.systempreferences:com.apple.preferences.extensions",
};

/// What the button of the card does.
class ExtensionStatusModel {
public:
    /// `workspace` must outlive this object.
    explicit ExtensionStatusModel(Workspace& workspace) : workspace_(workspace) {}

    /// Opens the settings; where their first place does not open, the second.
    void openExtensionSettings();

private:
    Workspace& workspace_;
};

} // namespace blankwell
