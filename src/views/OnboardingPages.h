#pragma once

#include "views/GuideElements.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace blankwell {

/// A step beside its number's symbol.
struct OnboardingStep {
    std::string symbol;
    std::string title;
    std::string text;

    friend bool operator==(const OnboardingStep&, const OnboardingStep&) = default;
};

/// A line with a key combination that stands out in its middle.
struct OnboardingShortcutLine {
    std::string before;
    std::string shortcut;
    std::string after;

    friend bool operator==(const OnboardingShortcutLine&, const OnboardingShortcutLine&) = default;
};

/// A picture of the file manager's menu over a folder.
struct FinderMenuIllustration {
    std::vector<std::string> entries;
    /// Beside the last entry, which has a submenu.
    std::string submenuSymbol;
    std::string folderName;

    friend bool operator==(const FinderMenuIllustration&, const FinderMenuIllustration&) = default;
};

/// A picture of the Quick Create panel.
struct QuickCreateIllustration {
    struct Destination {
        std::string title;
        std::string symbol;

        friend bool operator==(const Destination&, const Destination&) = default;
    };

    struct Tile {
        std::string title;
        std::string fileExtension;
        std::string symbol;

        friend bool operator==(const Tile&, const Tile&) = default;
    };

    /// The first is the one chosen.
    std::vector<Destination> destinations;
    std::string searchPlaceholder;
    std::vector<Tile> tiles;

    friend bool operator==(const QuickCreateIllustration&,
                           const QuickCreateIllustration&) = default;
};

using OnboardingElement = std::variant<OnboardingShortcutLine, GuideRow, OnboardingStep,
                                       FinderMenuIllustration, QuickCreateIllustration>;

/// One page of the walkthrough, from top to bottom.
struct OnboardingPage {
    std::string symbol;
    std::string title;
    /// Under the title.
    std::string text;
    std::vector<OnboardingElement> elements;

    friend bool operator==(const OnboardingPage&, const OnboardingPage&) = default;
};

inline constexpr std::size_t onboardingPageCount = 4;

/// All pages. `shortcut` is the Quick Create shortcut of the moment in words.
[[nodiscard]] std::vector<OnboardingPage> onboardingPages(std::string_view shortcut);

} // namespace blankwell
