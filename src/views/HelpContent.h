#pragma once

#include "filetypes/FileTypeDefinition.h"
#include "views/GuideElements.h"

#include <string>
#include <variant>
#include <vector>

namespace blankwell {

/// A way to create files, or a place where it works.
struct HelpLocationRow {
    std::string icon;
    std::string title;
    std::string text;

    friend bool operator==(const HelpLocationRow&, const HelpLocationRow&) = default;
};

/// One of several things to do one after the other.
struct HelpStep {
    /// From 1 in each list of steps.
    int number = 0;
    std::string title;
    std::string text;

    friend bool operator==(const HelpStep&, const HelpStep&) = default;
};

/// The title of what follows it in a card.
struct HelpHeading {
    std::string title;

    friend bool operator==(const HelpHeading&, const HelpHeading&) = default;
};

/// The types of one category.
struct HelpFileTypeGroup {
    std::string title;
    std::vector<FileTypeDefinition> types;

    friend bool operator==(const HelpFileTypeGroup&, const HelpFileTypeGroup&) = default;
};

using HelpElement =
    std::variant<GuideParagraph, HelpLocationRow, HelpStep, HelpHeading, HelpFileTypeGroup>;

struct HelpCard {
    std::string icon;
    std::string title;
    std::vector<HelpElement> content;

    friend bool operator==(const HelpCard&, const HelpCard&) = default;
};

struct HelpHeader {
    std::string symbol;
    std::string title;
    std::string text;
    /// Blank where the version is not known.
    std::string version;

    friend bool operator==(const HelpHeader&, const HelpHeader&) = default;
};

/// The help window, from top to bottom.
struct HelpContent {
    HelpHeader header;
    /// The ways to create files.
    std::vector<HelpLocationRow> ways;
    std::vector<HelpCard> cards;

    friend bool operator==(const HelpContent&, const HelpContent&) = default;
};

/// `version` is the text that names the application's version.
[[nodiscard]] HelpContent helpContent(std::string version);

} // namespace blankwell
