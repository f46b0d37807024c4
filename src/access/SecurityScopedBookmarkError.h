#pragma once

#include "platform/SystemError.h"

namespace blankwell {

/// Why the bookmark store failed: the system refused to make a bookmark, or to keep it.
struct SecurityScopedBookmarkError {
    /// The reason given for `bookmarkCreationFailed`, the one case there is.
    SystemError underlying;

    [[nodiscard]] const std::string& description() const { return underlying.description; }

    friend bool operator==(const SecurityScopedBookmarkError&,
                           const SecurityScopedBookmarkError&) = default;
};

} // namespace blankwell
