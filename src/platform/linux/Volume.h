#pragma once

#include "platform/linux/FolderIdentity.h"

#include <cstdint>
#include <expected>
#include <string>

namespace blankwell {

/// How far an identity can be trusted.
enum class IdentityStrength : std::uint8_t {
    /// It stays with the folder as long as the folder exists.
    strong = 0,
    /// Inode numbers are made up at each mount or by a server: only the path means something.
    weak = 1,
};

/// How far identities on a file system of the kind `kind` (`f_type` of `statfs(2)`, numbers as in
/// `linux/magic.h`) can be trusted. Weak are the FAT family, the network file systems, FUSE, and
/// what virtual machines share with their host; every other kind is strong.
[[nodiscard]] IdentityStrength identityStrength(std::uint64_t kind);

/// The kind of file system that holds `path`. Errors: `errno` values.
[[nodiscard]] std::expected<std::uint64_t, int> fileSystemKind(const std::string& path);

/// Whether a mounted volume begins at `path`. Errors: `errno` values.
[[nodiscard]] std::expected<bool, int> isMountPoint(const std::string& path);

} // namespace blankwell
