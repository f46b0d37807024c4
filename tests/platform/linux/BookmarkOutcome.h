#pragma once

#include "platform/Bookmarks.h"

#include <fmt/core.h>

#include <string>

namespace blankwell {

/// A path and " (stale)", as what a stale bookmark comes to.
inline std::string stale(const std::string& path) {
    return path + " (stale)";
}

/// What resolving came to: the path, marked where it is stale, or "error" and the code.
inline std::string outcome(const std::expected<ResolvedBookmark, SystemError>& resolved) {
    if (!resolved) {
        return fmt::format("error {}", resolved.error().code);
    }
    return resolved->isStale ? stale(resolved->url.path()) : resolved->url.path();
}

} // namespace blankwell
