#pragma once

#include <expected>
#include <string>

namespace blankwell {

/// Makes the folder `path` and those above it where they are missing, for this user alone (0700).
/// Folders that exist are left as they are. The error is an `errno` value.
[[nodiscard]] std::expected<void, int> makePrivateFolder(const std::string& path);

} // namespace blankwell
