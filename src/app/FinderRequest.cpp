#include "app/FinderRequest.h"

#include "base/PercentEncoding.h"
#include "base/UrlComponents.h"

#include <fmt/core.h>

#include <algorithm>

namespace blankwell {
namespace {

/// The value of the first item called `name`; nothing where there is none or it is empty.
std::optional<std::string> firstValue(const UrlComponents& components, std::string_view name) {
    const auto item =
        std::ranges::find(components.queryItems, name, &UrlComponents::QueryItem::name);
    if (item == components.queryItems.end() || !item->value || item->value->empty()) {
        return std::nullopt;
    }
    return item->value;
}

} // namespace

std::optional<FinderRequest> parseFinderRequest(std::string_view url) {
    const auto components = parseUrl(url);
    if (!components || components->scheme != requestScheme || components->host != "create") {
        return std::nullopt;
    }
    auto type = firstValue(*components, "type");
    auto directory = firstValue(*components, "directory");
    if (!type || !directory || !directory->starts_with('/') || directory->contains('\0')) {
        return std::nullopt;
    }
    return FinderRequest{.typeID = *std::move(type), .directoryPath = *std::move(directory)};
}

std::string finderRequestUrl(const FinderRequest& request) {
    constexpr std::string_view kept = "/-._~";
    return fmt::format("{}://create?type={}&directory={}", requestScheme,
                       percentEncoded(request.typeID, kept),
                       percentEncoded(request.directoryPath, kept));
}

} // namespace blankwell
