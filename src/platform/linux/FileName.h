#pragma once

#include <string_view>

namespace blankwell {

/// Whether `name` can name an item in a folder: it leads nowhere else.
[[nodiscard]] constexpr bool isFileName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." && !name.contains('/') &&
           !name.contains('\0');
}

} // namespace blankwell
