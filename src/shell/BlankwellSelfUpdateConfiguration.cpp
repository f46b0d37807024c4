#include "shell/BlankwellSelfUpdateConfiguration.h"

#include "base/Text.h"
#include "base/UrlComponents.h"
#include "platform/Bundle.h"

#include <algorithm>
#include <string_view>

namespace blankwell {
namespace {

std::optional<std::string> text(const Bundle& bundle, std::string_view key) {
    const auto entry = bundle.infoString(key);
    if (!entry || trimmed(*entry).empty()) {
        return std::nullopt;
    }
    return std::string(trimmed(*entry));
}

/// Whether a URL may contain the character: RFC 3986 leaves out blanks, control characters and
/// these delimiters.
bool isUrlCharacter(char character) {
    constexpr std::string_view excluded = "<>\"{}|\\^`\x7F";
    return static_cast<unsigned char>(character) > ' ' && !excluded.contains(character);
}

bool isUrl(const std::string& text) {
    return std::ranges::all_of(text, isUrlCharacter) && parseUrl(text).has_value();
}

bool isSecure(const std::string& url) {
    const auto components = parseUrl(url);
    return components && asciiLowered(components->scheme) == "https";
}

bool isKey(std::string_view text) {
    const auto key = trimmed(text);
    return !key.empty() && !key.starts_with("$(") && !key.ends_with(')');
}

} // namespace

BlankwellSelfUpdateConfiguration BlankwellSelfUpdateConfiguration::fromInfo(const Bundle& bundle) {
    auto feed = text(bundle, "SUFeedURL");
    if (feed && !isUrl(*feed)) {
        feed.reset();
    }
    return {.feedURL = std::move(feed), .publicEDKey = text(bundle, "SUPublicEDKey")};
}

bool BlankwellSelfUpdateConfiguration::isUsable() const {
    return feedURL && isSecure(*feedURL) && publicEDKey && isKey(*publicEDKey);
}

} // namespace blankwell
