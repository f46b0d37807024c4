#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace blankwell {

/// The scheme of request URLs, which only in these letters is ours.
inline constexpr std::string_view requestScheme = "blankwellplus";

/// What the file manager's extension asks for: a new file of a type in a folder.
struct FinderRequest {
    std::string typeID;
    /// Absolute, as the file system takes it.
    std::string directoryPath;

    friend bool operator==(const FinderRequest&, const FinderRequest&) = default;
};

/// Reads a request URL, such as `blankwellplus://create?type=md&directory=/Users/u/Projects`. The
/// first item of each name counts. Nothing where scheme or host are not exactly these, where an
/// item is missing or has no value, or where the directory cannot be one: not absolute, or with a
/// NUL.
[[nodiscard]] std::optional<FinderRequest> parseFinderRequest(std::string_view url);

/// The URL of `request`, with the directory percent-encoded as a query value.
[[nodiscard]] std::string finderRequestUrl(const FinderRequest& request);

} // namespace blankwell
