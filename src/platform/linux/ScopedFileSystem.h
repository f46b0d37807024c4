#pragma once

#include "platform/FileSystem.h"

#include <optional>

namespace blankwell {

class LinuxAccessScopes;

/// A file system for a sandboxed process: files are made only inside of folders with open access.
/// Looking is not restricted.
///
/// Inside means what it would mean to a kernel's sandbox: a path that a link leads out of the
/// granted folder is refused, while the granted folder may itself be reached through a link. The
/// test comes before the write; it does not withstand another process that swaps a folder for a
/// link in between.
///
/// A refusal is `fileWriteNoPermission`, or `fileNoSuchFile` where the folder to write in does not
/// exist, and nothing is written.
class ScopedFileSystem : public FileSystem {
public:
    /// Both must outlive this object.
    ScopedFileSystem(FileSystem& files, const LinuxAccessScopes& scopes);

    [[nodiscard]] std::expected<bool, SystemError> itemExists(const FileUrl& url) const override;
    [[nodiscard]] bool isDirectory(const FileUrl& url) const override;
    std::expected<void, SystemError>
    visitNames(const FileUrl& folder,
               const std::function<void(std::string_view)>& visitor) const override;
    std::expected<void, SystemError> writeNew(const FileUrl& url,
                                              std::span<const std::byte> bytes) override;
    std::expected<void, SystemError> copyNew(const FileUrl& source, const FileUrl& url) override;
    [[nodiscard]] std::string displayName(const FileUrl& url) const override;

private:
    /// Why nothing may be made at the standardized `url`; nothing if it may.
    [[nodiscard]] std::optional<SystemError> refusal(const FileUrl& url) const;

    FileSystem& files_;
    const LinuxAccessScopes& scopes_;
};

} // namespace blankwell
