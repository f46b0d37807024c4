#pragma once

#include <compare>
#include <string_view>

namespace blankwell {

/// Compares two versions as the update framework does.
///
/// A version is a row of numbers and words; white space, dashes and other marks only separate.
/// Numbers compare by value, however long, words by their bytes, and a number comes after a word.
/// Where one version goes on and the other has ended, a number makes it the later ("1.2" before
/// "1.2.3"), a word the earlier, as a pre-release ("1.2b1" before "1.2"). Zeros that only fill up
/// do not count: "1.0" equals "1.0.0".
[[nodiscard]] std::weak_ordering compareVersions(std::string_view left, std::string_view right);

/// Whether `version` comes after `other`.
[[nodiscard]] inline bool isNewer(std::string_view version, std::string_view other) {
    return compareVersions(version, other) > 0;
}

} // namespace blankwell
