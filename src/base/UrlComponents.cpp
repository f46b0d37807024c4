#include "base/UrlComponents.h"

#include "base/PercentEncoding.h"
#include "base/Text.h"

#include <algorithm>

namespace blankwell {
namespace {

constexpr std::string_view schemeCharacters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+-.";

/// Cuts `text` at the first of `separators`: what stands before it is returned, what follows it is
/// left in `text`, which becomes empty where there is none.
std::string_view takeUntil(std::string_view& text, std::string_view separators) {
    const auto end = std::min(text.find_first_of(separators), text.size());
    const auto taken = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return taken;
}

std::string_view hostOf(std::string_view authority) {
    const auto user = authority.rfind('@');
    const auto host = user == std::string_view::npos ? authority : authority.substr(user + 1);
    const auto addressEnd = host.starts_with('[') ? host.find(']') : 0;
    return host.substr(0, host.find(':', addressEnd));
}

std::optional<UrlComponents::QueryItem> parseItem(std::string_view text) {
    const bool hasValue = text.contains('=');
    auto name = percentDecoded(takeUntil(text, "="));
    auto value = percentDecoded(text);
    if (!name || !value) {
        return std::nullopt;
    }
    const bool isValue = hasValue && isUtf8(*value);
    return UrlComponents::QueryItem{
        .name = *std::move(name),
        .value = isValue ? std::move(value) : std::nullopt,
    };
}

} // namespace

std::optional<UrlComponents> parseUrl(std::string_view url) {
    const auto schemeEnd = url.find_first_not_of(schemeCharacters);
    if (schemeEnd == 0 || schemeEnd == std::string_view::npos || url[schemeEnd] != ':') {
        return std::nullopt;
    }
    UrlComponents components{.scheme = std::string(url.substr(0, schemeEnd))};
    auto rest = url.substr(schemeEnd + 1);
    rest = rest.substr(0, rest.find('#'));

    auto hierarchy = takeUntil(rest, "?");
    if (hierarchy.starts_with("//")) {
        hierarchy.remove_prefix(2);
        components.host = hostOf(takeUntil(hierarchy, "/"));
    }
    while (!rest.empty()) {
        auto item = parseItem(takeUntil(rest, "&"));
        if (!item) {
            return std::nullopt;
        }
        components.queryItems.push_back(*std::move(item));
    }
    return components;
}

} // namespace blankwell
