#pragma once

#include "platform/BundleStore.h"

namespace blankwell {

/// Bundles in the file system. A copy is made beside its place, hidden, and put there when it is
/// whole and on the disk.
class LinuxBundleStore : public BundleStore {
public:
    [[nodiscard]] bool stands(const FileUrl& url) const override;
    [[nodiscard]] std::optional<std::string> identity(const FileUrl& url) const override;
    std::expected<FileUrl, SystemError> copyInto(const FileUrl& folder,
                                                 const FileUrl& bundle) override;
};

} // namespace blankwell
