#pragma once

#include "base/Bytes.h"
#include "platform/linux/FolderIdentity.h"
#include "platform/linux/Volume.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace blankwell {

/// What a bookmark says about its folder: where it was, and what makes it that folder.
///
/// All paths are absolute, standardized, shorter than `PATH_MAX` and in the bytes of the file
/// system.
struct BookmarkBlob {
    /// The folder as the user named it, links included.
    std::string path;
    /// The folder with links resolved.
    std::string location;
    /// Where the volume of the folder was mounted: `location` or above it.
    std::string mountPoint;
    VolumeIdentity volume;
    IdentityStrength strength = IdentityStrength::strong;
    FolderIdentity folder;
    /// The folders above `location`, innermost first, the last one being the mount point. Empty
    /// where the folder is the mount point itself.
    std::vector<FolderIdentity> ancestors;

    /// The identity of the folder at `mountPoint`.
    [[nodiscard]] const FolderIdentity& mountRoot() const {
        return ancestors.empty() ? folder : ancestors.back();
    }

    friend bool operator==(const BookmarkBlob&, const BookmarkBlob&) = default;
};

/// `blob` as bytes, integers little-endian:
///
/// | bytes | content                                                                  |
/// |-------|--------------------------------------------------------------------------|
/// | 8     | the magic "BWFOLDER"                                                     |
/// | 4     | version, 1                                                               |
/// | 4     | length of the whole, magic and checksum included                         |
/// | 8 + 8 | kind of file system and identifier of the volume, 0 where it has none    |
/// | 1     | strength of the identities, 0 strong or 1 weak                           |
/// | 2 + n | path: length and bytes                                                   |
/// | 2 + n | location, likewise; no bytes where it is the path                        |
/// | 2 + n | mount point, likewise                                                    |
/// | 2     | number of identities: the folder's and one for each ancestor             |
/// | …     | the identities, see below                                                |
/// | 4     | CRC-32 (of zlib) of everything before it                                 |
///
/// and each identity:
///
/// | bytes | content                                                                  |
/// |-------|--------------------------------------------------------------------------|
/// | 8     | inode number                                                             |
/// | 1     | 1 with a birth time, else 0                                              |
/// | 8 + 4 | with a birth time only: seconds (signed) and nanoseconds                 |
/// | 1     | length of the file handle, 0 where there is none, at most 128            |
/// | 4 + n | with a handle only: its type (signed) and its bytes                      |
[[nodiscard]] Bytes encodeBookmark(const BookmarkBlob& blob);

/// The blob that `bytes` are the encoding of; nothing for any other bytes, those of a later version
/// included.
[[nodiscard]] std::optional<BookmarkBlob> decodeBookmark(std::span<const std::byte> bytes);

} // namespace blankwell
