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

/// What a mounted file system says about itself.
struct VolumeIdentity {
    /// `f_type` of `statfs(2)`, numbers as in `linux/magic.h`.
    std::uint64_t kind = 0;
    /// `f_fsid` of `statfs(2)` where it is made from the volume's UUID, so that it survives
    /// remounts (ext2 to ext4, btrfs); else 0.
    std::uint64_t id = 0;

    friend bool operator==(const VolumeIdentity&, const VolumeIdentity&) = default;
};

/// How far identities on a file system of the kind `kind` can be trusted. Weak are the FAT family,
/// the network file systems, FUSE, and what virtual machines share with their host; every other
/// kind is strong.
[[nodiscard]] IdentityStrength identityStrength(std::uint64_t kind);

/// Whether file handles on a file system of the kind `kind` hold a random number for each inode, so
/// that a handle alone tells a folder from all others, those of other volumes included.
[[nodiscard]] bool hasRandomHandles(std::uint64_t kind);

/// The volume that holds `path`. Errors: `errno` values.
[[nodiscard]] std::expected<VolumeIdentity, int> identifyVolume(const std::string& path);

/// Whether a mounted volume begins at `path`. Errors: `errno` values.
[[nodiscard]] std::expected<bool, int> isMountPoint(const std::string& path);

} // namespace blankwell
