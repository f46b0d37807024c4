#include "settings/AppPresence.h"

#include <algorithm>
#include <cstddef>

namespace blankwell {
namespace {

struct Texts {
    std::string_view rawValue;
    std::string_view title;
    std::string_view description;
};

/// In the order of the cases.
constexpr std::array<Texts, allAppPresences.size()> texts{{
    {"dockAndMenuBar", "Dock + Menu", "Show Blankwell+ in the Dock and the menu bar."},
    {"dockOnly", "Dock", "Show Blankwell+ in the Dock only."},
    {"menuBarOnly", "Menu Bar", "Keep Blankwell+ available from the menu bar only."},
}};

const Texts& textsOf(AppPresence presence) {
    return texts.at(static_cast<std::size_t>(presence));
}

} // namespace

std::string_view rawValue(AppPresence presence) {
    return textsOf(presence).rawValue;
}

std::optional<AppPresence> appPresence(std::string_view rawValue) {
    const auto* const found = std::ranges::find_if(allAppPresences, [&](AppPresence presence) {
        return blankwell::rawValue(presence) == rawValue;
    });
    return found == allAppPresences.end() ? std::nullopt : std::optional(*found);
}

std::string_view title(AppPresence presence) {
    return textsOf(presence).title;
}

std::string_view description(AppPresence presence) {
    return textsOf(presence).description;
}

} // namespace blankwell
