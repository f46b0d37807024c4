#pragma once

#include <optional>
#include <string>

namespace blankwell {

class Bundle;

/// Where the application finds updates of itself, and the key that they are signed with: what a
/// build carries in its Info.plist.
struct BlankwellSelfUpdateConfiguration {
    /// The address of the update feed, as it stands in the Info.plist, trimmed. Nothing where the
    /// entry is missing, blank, or not a URL.
    std::optional<std::string> feedURL;
    /// The public EdDSA key, trimmed; nothing where the entry is missing or blank.
    std::optional<std::string> publicEDKey;

    /// Reads the entries "SUFeedURL" and "SUPublicEDKey".
    [[nodiscard]] static BlankwellSelfUpdateConfiguration fromInfo(const Bundle& bundle);

    /// Whether the build updates itself: it has a feed over HTTPS and a key that is not a build
    /// setting left unexpanded, such as "$(KEY)".
    [[nodiscard]] bool isUsable() const;

    friend bool operator==(const BlankwellSelfUpdateConfiguration&,
                           const BlankwellSelfUpdateConfiguration&) = default;
};

} // namespace blankwell
