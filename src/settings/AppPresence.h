#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace blankwell {

/// Where the application shows itself.
enum class AppPresence { dockAndMenuBar, dockOnly, menuBarOnly };

/// Every presence, in the order of pickers.
inline constexpr std::array allAppPresences{
    AppPresence::dockAndMenuBar,
    AppPresence::dockOnly,
    AppPresence::menuBarOnly,
};

/// The form stored in settings, which is the case's name.
[[nodiscard]] std::string_view rawValue(AppPresence presence);

/// The presence whose raw value is exactly `rawValue`.
[[nodiscard]] std::optional<AppPresence> appPresence(std::string_view rawValue);

/// The text in pickers.
[[nodiscard]] std::string_view title(AppPresence presence);

/// The sentence that explains a choice.
[[nodiscard]] std::string_view description(AppPresence presence);

[[nodiscard]] constexpr bool showsStatusItem(AppPresence presence) {
    return presence != AppPresence::dockOnly;
}

/// Whether the application is kept out of the list of running ones.
[[nodiscard]] constexpr bool isAccessory(AppPresence presence) {
    return presence == AppPresence::menuBarOnly;
}

} // namespace blankwell
