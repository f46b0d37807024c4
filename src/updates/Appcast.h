#pragma once

#include <cstddef>
#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

/// One update that a feed announces, as it stands there. Texts are trimmed; what is missing is
/// empty or nothing.
struct AppcastItem {
    /// What versions are compared by.
    std::string version;
    /// What people call the version; where the feed has none, the same as `version`.
    std::string shortVersion;
    /// The archive's address.
    std::string url;
    /// The archive's size in bytes.
    std::optional<std::uint64_t> length;
    /// The archive's Ed25519 signature, in base64.
    std::string signature;
    /// The system that the archive is for; empty: any.
    std::string operatingSystem;
    std::string minimumSystemVersion;
    std::string maximumSystemVersion;
    /// The channel that it is published in; empty: to everybody.
    std::string channel;
    bool isCritical = false;
    /// It is critical only to versions before this one; empty: to all.
    std::string criticalBefore;
    /// What is new, in the form that `descriptionFormat` names: "html" unless the feed says
    /// otherwise.
    std::string description;
    std::string descriptionFormat = "html";
    /// Where more is to be read.
    std::string releaseNotesLink;

    friend bool operator==(const AppcastItem&, const AppcastItem&) = default;
};

/// The updates that a feed announces, in its order.
using Appcast = std::vector<AppcastItem>;

/// What is taken for a feed at most.
struct AppcastLimits {
    static constexpr std::size_t size = std::size_t{1} << 20U;
    static constexpr std::size_t depth = 16;
    static constexpr std::size_t items = 1000;
};

/// Reads a feed: RSS 2.0 with the update framework's own elements.
///
/// The error is a sentence for the user: the text is not well-formed XML, is no feed, exceeds
/// `AppcastLimits`, or declares a document type. So no entity is ever defined and nothing else is
/// ever read for it.
[[nodiscard]] std::expected<Appcast, std::string> parseAppcast(std::string_view text);

} // namespace blankwell
