#include "platform/linux/update/ArchivePath.h"

#include <algorithm>
#include <vector>

namespace blankwell {
namespace {

constexpr std::size_t longestPath = 1024;
constexpr std::size_t longestName = 255;
constexpr std::size_t deepest = 32;

/// The components without those that change nothing.
std::vector<std::string_view> components(std::string_view path) {
    std::vector<std::string_view> result;
    while (!path.empty()) {
        const auto end = std::min(path.find('/'), path.size());
        const auto component = path.substr(0, end);
        if (!component.empty() && component != ".") {
            result.push_back(component);
        }
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return result;
}

} // namespace

std::optional<std::string> plainArchivePath(std::string_view path) {
    const auto parts = components(path);
    const bool isPlain = !parts.empty() && parts.size() <= deepest && path.size() <= longestPath &&
                         !path.starts_with('/') &&
                         std::ranges::all_of(parts, [](std::string_view part) {
                             return part != ".." && part.size() <= longestName;
                         });
    if (!isPlain) {
        return std::nullopt;
    }
    std::string result;
    for (const auto part : parts) {
        result += result.empty() ? "" : "/";
        result += part;
    }
    return result;
}

bool leadsInside(std::string_view path, std::string_view target) {
    if (target.empty() || target.starts_with('/') || target.size() > longestPath) {
        return false;
    }
    const auto parts = components(target);
    const auto climbs = std::ranges::find_if(parts, [](auto part) { return part != ".."; });
    const auto height = static_cast<std::size_t>(climbs - parts.begin());
    const auto folders = components(path).size() - 1; // that the link stands in
    const bool climbsLater = std::find(climbs, parts.end(), "..") != parts.end();
    return height < folders && !climbsLater;
}

} // namespace blankwell
