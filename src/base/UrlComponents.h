#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

/// The parts of a URL that a request is made of.
struct UrlComponents {
    /// One `name=value` of the query, percent-decoded.
    struct QueryItem {
        std::string name;
        /// Absent where there was no `=`, or where the decoded bytes are not UTF-8.
        std::optional<std::string> value;

        friend bool operator==(const QueryItem&, const QueryItem&) = default;
    };

    std::string scheme;
    /// Without user and port; empty where the URL has no authority. Not decoded, letters as given.
    std::string host;
    /// In the order of the URL, doubles kept.
    std::vector<QueryItem> queryItems;

    friend bool operator==(const UrlComponents&, const UrlComponents&) = default;
};

/// Splits `url` as RFC 3986 lays it out: the query ends at `#`, items are split at `&` and then at
/// their first `=`, and only then decoded; `+` stays a plus sign.
///
/// Nothing when there is no scheme, or where a `%` of the query is not followed by two hexadecimal
/// digits.
[[nodiscard]] std::optional<UrlComponents> parseUrl(std::string_view url);

} // namespace blankwell
