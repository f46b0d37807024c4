#pragma once

#include "platform/FileSystem.h"

namespace blankwell {

/// The kernel's file system. New files get the mode that the user's umask gives a plain file, and
/// nothing of a copied file but its contents.
///
/// A failed write removes the partial file, and only if it is still the very file that the call
/// made.
class LinuxFileSystem : public FileSystem {
public:
    [[nodiscard]] std::expected<bool, SystemError> itemExists(const FileUrl& url) const override;
    [[nodiscard]] bool isDirectory(const FileUrl& url) const override;
    std::expected<void, SystemError>
    visitNames(const FileUrl& folder,
               const std::function<void(std::string_view)>& visitor) const override;
    std::expected<void, SystemError> writeNew(const FileUrl& url,
                                              std::span<const std::byte> bytes) override;
    std::expected<void, SystemError> copyNew(const FileUrl& source, const FileUrl& url) override;
    [[nodiscard]] std::string displayName(const FileUrl& url) const override;
};

} // namespace blankwell
