#pragma once

#include "shell/CardTexts.h"

namespace blankwell {

/// The card whose button starts the `UninstallFlow`.
inline constexpr CardTexts uninstallCard{
    .symbol = "trash",
    .symbolColor = ColorRole::red,
    .title = "Uninstall Blankwell+",
    .text = "Move the app to the Trash, remove saved settings, and restart Finder so the Finder "
            "extension is unloaded.",
    .button = "Uninstall...",
};

} // namespace blankwell
