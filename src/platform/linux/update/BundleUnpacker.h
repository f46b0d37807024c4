#pragma once

#include "base/FileUrl.h"
#include "platform/UpdateFailure.h"

#include <cstddef>
#include <cstdint>
#include <expected>
#include <span>
#include <stop_token>

namespace blankwell {

/// Unpacks archives that hold one bundle: a tape archive, compressed or not.
class BundleUnpacker {
public:
    /// What is unpacked at most.
    struct Limits {
        std::uint64_t size = std::uint64_t{1} << 30U;
        std::size_t entries = 50'000;
    };

    BundleUnpacker() = default;

    explicit BundleUnpacker(Limits limits) : limits_(limits) {}

    /// Unpacks `archive` into the empty folder `folder`, and gives the bundle's place in it.
    ///
    /// Folders, plain files and symbolic links that stay inside the bundle are unpacked, with no
    /// other rights than whether a file can be run. Anything else that an archive can hold is a
    /// failure, and so are a path that leaves the folder, a name that comes twice, and more than
    /// one bundle. After a failure there may be leftovers in `folder`, and nowhere else.
    [[nodiscard]] std::expected<FileUrl, UpdateFailure> unpack(std::span<const std::byte> archive,
                                                               const FileUrl& folder,
                                                               const std::stop_token& stop) const;

private:
    Limits limits_;
};

} // namespace blankwell
