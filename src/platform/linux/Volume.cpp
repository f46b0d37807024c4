#include "platform/linux/Volume.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/vfs.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>

namespace blankwell {
namespace {

constexpr std::array<std::uint64_t, 14> weakKinds{
    0x00004d44, // vfat, msdos
    0x2011bab0, // exfat
    0x00006969, // nfs
    0x0000517b, // smbfs
    0xff534d42, // cifs
    0xfe534d42, // smb2 and later
    0x65735546, // fuse: sshfs, gvfs, ntfs-3g, the document portal
    0x01021997, // 9p
    0x00c36400, // ceph
    0x5346414f, // afs
    0x6b414653, // kafs
    0x73757245, // coda
    0x786f4256, // vboxsf
    0xbacbacbc, // vmhgfs
};

constexpr std::array<std::uint64_t, 2> kindsWithLastingIds{
    0x0000ef53, // ext2, ext3, ext4
    0x9123683e, // btrfs
};

/// Their `i_generation` is drawn at random for each new inode.
constexpr std::array<std::uint64_t, 3> kindsWithRandomHandles{
    0x0000ef53, // ext2, ext3, ext4
    0x01021994, // tmpfs
    0x58465342, // xfs
};

} // namespace

bool hasRandomHandles(std::uint64_t kind) {
    return std::ranges::find(kindsWithRandomHandles, kind) != kindsWithRandomHandles.end();
}

IdentityStrength identityStrength(std::uint64_t kind) {
    const bool isWeak = std::ranges::find(weakKinds, kind) != weakKinds.end();
    return isWeak ? IdentityStrength::weak : IdentityStrength::strong;
}

std::expected<VolumeIdentity, int> identifyVolume(const std::string& path) {
    struct ::statfs status{};
    if (::statfs(path.c_str(), &status) != 0) {
        return std::unexpected(errno);
    }
    // The magic numbers have 32 bits; the field is signed and wider.
    VolumeIdentity volume{.kind = static_cast<std::uint32_t>(status.f_type)};
    if (std::ranges::find(kindsWithLastingIds, volume.kind) != kindsWithLastingIds.end()) {
        volume.id = std::bit_cast<std::uint64_t>(status.f_fsid);
    }
    return volume;
}

std::expected<bool, int> isMountPoint(const std::string& path) {
    struct ::statx status{};
    if (::statx(AT_FDCWD, path.c_str(), 0, STATX_TYPE, &status) != 0) {
        return std::unexpected(errno);
    }
    return (status.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
}

} // namespace blankwell
