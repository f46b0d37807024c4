#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace blankwell {

/// The object path that the Desktop Entry Specification derives from an application's name on the
/// bus.
[[nodiscard]] inline std::string objectPath(std::string_view name) {
    auto path = '/' + std::string(name);
    std::ranges::replace(path, '.', '/');
    std::ranges::replace(path, '-', '_');
    return path;
}

} // namespace blankwell
