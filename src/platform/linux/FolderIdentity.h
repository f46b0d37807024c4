#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <string>

namespace blankwell {

/// When a folder was made, since 1970 as `statx(2)` tells it.
struct BirthTime {
    std::int64_t seconds = 0;
    std::uint32_t nanoseconds = 0;

    friend bool operator==(const BirthTime&, const BirthTime&) = default;
};

/// What makes a folder itself, whatever it is called and wherever it stands in its file system.
///
/// The inode number alone is given away again as soon as a folder is deleted; the birth time and
/// the kernel's file handle, which carries the inode's generation, tell the next owner apart. All
/// three survive renames and remounts.
struct FolderIdentity {
    std::uint64_t inode = 0;
    /// Absent where the file system keeps none.
    std::optional<BirthTime> birthTime;
    /// `handle_type` and `f_handle` of `name_to_handle_at(2)`; no bytes where there is no handle.
    std::int32_t handleType = 0;
    std::string handle;

    /// Whether another folder with the same inode number could be told apart from this one.
    [[nodiscard]] bool isUnique() const { return birthTime.has_value() || !handle.empty(); }

    friend bool operator==(const FolderIdentity&, const FolderIdentity&) = default;
};

/// The identity of the folder that `path` leads to, through links. Errors: `errno` values,
/// `ENOTDIR` where it is not a folder.
[[nodiscard]] std::expected<FolderIdentity, int> identifyFolder(const std::string& path);

/// Whether `path` leads to the folder `identity` and not to another item. Two system calls at most.
/// Errors: `errno` values of looking there.
[[nodiscard]] std::expected<bool, int> leadsTo(const std::string& path,
                                               const FolderIdentity& identity);

/// As `leadsTo`, told by the handle alone, which `identity` must have: one system call, for file
/// systems whose handles are random.
[[nodiscard]] std::expected<bool, int> leadsToHandle(const std::string& path,
                                                     const FolderIdentity& identity);

/// Where the folder `identity` stands now, asked of the kernel by its handle. `anyFolder` is a
/// folder in the mount that holds it.
///
/// Errors: `ESTALE` where the folder exists no more or cannot be reached through the mount, `EPERM`
/// without the privilege
/// (`CAP_DAC_READ_SEARCH`), `EOPNOTSUPP` without a handle, other `errno` values.
[[nodiscard]] std::expected<std::string, int> pathByHandle(const FolderIdentity& identity,
                                                           const std::string& anyFolder);

} // namespace blankwell
