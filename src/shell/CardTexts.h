#pragma once

#include "platform/ColorRole.h"

#include <string_view>

namespace blankwell {

/// A card of the main window that explains one thing and offers one button for it.
struct CardTexts {
    std::string_view symbol;
    ColorRole symbolColor;
    std::string_view title;
    std::string_view text;
    std::string_view button;

    friend bool operator==(const CardTexts&, const CardTexts&) = default;
};

} // namespace blankwell
