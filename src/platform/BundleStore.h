#pragma once

#include "base/FileUrl.h"
#include "platform/SystemError.h"

#include <expected>
#include <optional>
#include <string>

namespace blankwell {

/// Application bundles as they lie on the disk.
class BundleStore {
public:
    virtual ~BundleStore() = default;

    /// Whether a bundle of this application stands at `url`.
    [[nodiscard]] virtual bool stands(const FileUrl& url) const = 0;

    /// What tells the bundle at `url` from every other, also after it was moved within its file
    /// system; nothing where that cannot be told.
    [[nodiscard]] virtual std::optional<std::string> identity(const FileUrl& url) const = 0;

    /// Makes a copy of `bundle` in `folder`, under the same name, and returns its place. The folder
    /// is made where it is missing. A bundle of this application that stands there is exchanged in
    /// one step; anything else there is an error. Does nothing where `bundle` stands there itself.
    /// A failure leaves what was there.
    virtual std::expected<FileUrl, SystemError> copyInto(const FileUrl& folder,
                                                         const FileUrl& bundle) = 0;
};

} // namespace blankwell
