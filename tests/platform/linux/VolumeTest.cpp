#include "platform/linux/Volume.h"

#include <gtest/gtest.h>
#include <linux/magic.h>

#include <array>
#include <cerrno>

namespace blankwell {
namespace {

TEST(VolumeTest, IdentitiesAreWeakWhereInodeNumbersAreMadeUp) {
    for (const auto kind : std::to_array<std::uint64_t>(
             {MSDOS_SUPER_MAGIC, EXFAT_SUPER_MAGIC, NFS_SUPER_MAGIC, SMB_SUPER_MAGIC,
              CIFS_SUPER_MAGIC, SMB2_SUPER_MAGIC, FUSE_SUPER_MAGIC, V9FS_MAGIC, CEPH_SUPER_MAGIC,
              AFS_SUPER_MAGIC, AFS_FS_MAGIC, CODA_SUPER_MAGIC})) {
        EXPECT_EQ(identityStrength(kind), IdentityStrength::weak) << std::hex << kind;
    }
}

TEST(VolumeTest, IdentitiesAreStrongOnTheDisksOfThisSystem) {
    constexpr std::uint64_t xfs = 0x58465342;
    for (const std::uint64_t kind :
         {std::uint64_t{EXT4_SUPER_MAGIC}, xfs, std::uint64_t{BTRFS_SUPER_MAGIC},
          std::uint64_t{TMPFS_MAGIC}, std::uint64_t{OVERLAYFS_SUPER_MAGIC}}) {
        EXPECT_EQ(identityStrength(kind), IdentityStrength::strong) << std::hex << kind;
    }
}

TEST(VolumeTest, AMountPointIsKnownByTheMountAndNotByItsName) {
    EXPECT_EQ(isMountPoint("/"), true);
    EXPECT_EQ(isMountPoint("/proc"), true);
    EXPECT_EQ(isMountPoint("/proc/self"), false);
    EXPECT_EQ(isMountPoint("/usr/none").error(), ENOENT);
}

TEST(VolumeTest, TheKindIsThatOfThePathsFileSystem) {
    EXPECT_EQ(identifyVolume("/proc/self"), (VolumeIdentity{.kind = PROC_SUPER_MAGIC}));
    EXPECT_EQ(identifyVolume("/usr/none").error(), ENOENT);
}

} // namespace
} // namespace blankwell
