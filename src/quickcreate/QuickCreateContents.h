#pragma once

#include "filetypes/CreationDestination.h"
#include "filetypes/FileTypeDefinition.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

class DesktopCreationController;

/// The fixed texts of the Quick Create panel.
namespace quick_create_texts {

inline constexpr std::string_view title = "Create File";
inline constexpr std::string_view searchPrompt = "Search file types";
inline constexpr std::string_view destination = "Destination";
inline constexpr std::string_view nothingFound = "No file types found";
inline constexpr std::string_view nothingFoundSymbol = "magnifyingglass";
inline constexpr std::string_view close = "Close";

} // namespace quick_create_texts

/// How a destination stands in the panel's picker.
struct DestinationLabel {
    std::string_view title;
    std::string_view symbol;

    friend bool operator==(const DestinationLabel&, const DestinationLabel&) = default;
};

[[nodiscard]] DestinationLabel destinationLabel(CreationDestinationMode mode);

/// The types of one category that the panel offers, in the user's order; never empty.
struct QuickCreateSection {
    std::string_view title;
    std::vector<FileTypeDefinition> types;

    friend bool operator==(const QuickCreateSection&, const QuickCreateSection&) = default;
};

/// The sections that the panel shows now, in the order of the categories. None means that no type
/// is switched on or matches the search, of which the panel tells in their place.
[[nodiscard]] std::vector<QuickCreateSection>
quickCreateSections(const DesktopCreationController& controller);

/// The type that Return in the search field creates; nothing where none is shown.
[[nodiscard]] std::optional<FileTypeDefinition>
firstType(const std::vector<QuickCreateSection>& sections);

/// What stands at the panel's bottom.
struct QuickCreateFooter {
    std::string symbol;
    /// The last success, before the first one the destination.
    std::string firstLine;
    /// Where that is.
    std::string secondLine;

    friend bool operator==(const QuickCreateFooter&, const QuickCreateFooter&) = default;
};

[[nodiscard]] QuickCreateFooter quickCreateFooter(const DesktopCreationController& controller);

/// What screen readers call the tile of `type`.
[[nodiscard]] std::string tileName(const FileTypeDefinition& type);

} // namespace blankwell
