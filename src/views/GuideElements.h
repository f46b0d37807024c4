#pragma once

#include <string>

namespace blankwell {

// What the pages that teach the user are made of. Texts may have bold runs, marked as `styledText`
// reads them.

struct GuideParagraph {
    std::string text;

    friend bool operator==(const GuideParagraph&, const GuideParagraph&) = default;
};

/// A sentence beside a symbol.
struct GuideRow {
    std::string symbol;
    std::string text;

    friend bool operator==(const GuideRow&, const GuideRow&) = default;
};

} // namespace blankwell
