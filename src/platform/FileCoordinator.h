#pragma once

#include "base/FileUrl.h"
#include "platform/SystemError.h"

#include <functional>
#include <optional>

namespace blankwell {

/// Orders a write against the other coordinated readers and writers of the same item.
class FileCoordinator {
public:
    virtual ~FileCoordinator() = default;

    /// Waits for the turn to replace `url`, then calls `accessor` once with the URL to write to,
    /// which may be another. Returns the coordinator's own error, or nothing. The accessor may not
    /// have been called in either case: the caller must look.
    [[nodiscard]] virtual std::optional<SystemError>
    coordinateReplacing(const FileUrl& url,
                        const std::function<void(const FileUrl&)>& accessor) = 0;
};

} // namespace blankwell
