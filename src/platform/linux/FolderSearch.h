#pragma once

#include "platform/linux/FolderIdentity.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>

namespace blankwell {

/// Looks for a folder that was renamed or moved, by its identity, nearest places first: the folders
/// below where it was, their neighbours, and so on up to the root of the mount.
///
/// Never follows links and never leaves the mount. Folders that may not be read are passed over. A
/// search ends without a result when a limit is reached: "not found" then means "not near".
class FolderSearch {
public:
    struct Limits {
        /// Names of items looked at, all folders together.
        std::size_t entries = 200'000;
        /// Looked at before each folder.
        std::chrono::milliseconds time{250};
    };

    /// `wanted` must outlive this object.
    FolderSearch(const FolderIdentity& wanted, Limits limits);

    /// The path of the wanted folder, searched for around the folder `start`. One use of an object.
    [[nodiscard]] std::optional<std::string> around(const std::string& start);

private:
    /// A folder to be listed.
    struct Place {
        std::string path;
        /// Above the start: its own folder comes next, and `from`, just seen, is left out.
        bool isAbove = false;
        std::uint64_t from = 0;
    };

    std::optional<std::string> visit(const Place& place);
    std::optional<std::string> list(const Place& place);
    void climbFrom(const Place& place, std::uint64_t inode);
    [[nodiscard]] bool isOverLimit() const;

    const FolderIdentity& wanted_;
    Limits limits_;
    std::chrono::steady_clock::time_point deadline_;
    std::size_t entries_ = 0;
    std::uint64_t mount_ = 0;
    std::deque<Place> queue_;
};

} // namespace blankwell
