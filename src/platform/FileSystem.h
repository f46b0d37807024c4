#pragma once

#include "base/FileUrl.h"
#include "platform/SystemError.h"

#include <cstddef>
#include <expected>
#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace blankwell {

/// The file operations that creating a blank file takes. Nothing here ever replaces an item.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// Whether something stands at `url`: a file, a folder, or a link even if it points nowhere.
    /// Any answer of the system but "there" and "not there" is an error.
    [[nodiscard]] virtual std::expected<bool, SystemError> itemExists(const FileUrl& url) const = 0;

    /// Whether a folder, or a link that leads to one, stands at `url`.
    [[nodiscard]] virtual bool isDirectory(const FileUrl& url) const = 0;

    /// Calls `visitor` with the name of each item in `folder`, in no order, in one pass. The name
    /// is borrowed for the call. On an error part of the names may have been visited.
    virtual std::expected<void, SystemError>
    visitNames(const FileUrl& folder,
               const std::function<void(std::string_view)>& visitor) const = 0;

    /// Makes the file `url` holding `bytes`; fails with `fileWriteFileExists` if anything stands
    /// there. A failure leaves nothing behind that was not there before.
    virtual std::expected<void, SystemError> writeNew(const FileUrl& url,
                                                      std::span<const std::byte> bytes) = 0;

    /// Makes the file `url` with the contents of the file `source`; otherwise as `writeNew`.
    virtual std::expected<void, SystemError> copyNew(const FileUrl& source, const FileUrl& url) = 0;

    /// The name under which the user knows the item, for messages.
    [[nodiscard]] virtual std::string displayName(const FileUrl& url) const = 0;
};

} // namespace blankwell
