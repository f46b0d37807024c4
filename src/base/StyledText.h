#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

/// A piece of text in one weight.
struct StyledRun {
    std::string text;
    bool isBold = false;

    friend bool operator==(const StyledRun&, const StyledRun&) = default;
};

/// A text of several weights, from its first to its last piece. No piece is empty, and neighbours
/// differ in weight.
using StyledText = std::vector<StyledRun>;

/// `marked` with what stands between double asterisks in bold. Asterisks that enclose nothing, or
/// that are never closed, are text like any other.
[[nodiscard]] StyledText styledText(std::string_view marked);

} // namespace blankwell
